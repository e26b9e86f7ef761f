<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>HomePage</name>
    <message>
        <source>No link for now</source>
        <translation>暂无连接</translation>
    </message>
    <message>
        <source>A link is being set up</source>
        <translation>正在建立连接</translation>
    </message>
    <message>
        <source>Wi-Fi has been opened</source>
        <translation>无线网络已打开</translation>
    </message>
    <message>
        <source>The link is up</source>
        <translation>连接已建立</translation>
    </message>
    <message>
        <source>The link is down</source>
        <translation>连接已断开</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>主页</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Wi-Fi settings</source>
        <translation>无线网络设置</translation>
    </message>
</context>
</TS>
