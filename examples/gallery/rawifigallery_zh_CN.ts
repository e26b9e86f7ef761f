<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Gallery</name>
    <message>
        <source>Gallery</source>
        <translation>控件展示</translation>
    </message>
    <message>
        <source>Title strip</source>
        <translation>标题栏</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>Network settings</source>
        <translation>网络设置</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>收音机</translation>
    </message>
    <message>
        <source>OFF</source>
        <translation>关</translation>
    </message>
    <message>
        <source>ON</source>
        <translation>开</translation>
    </message>
    <message>
        <source>Switch</source>
        <translation>开关</translation>
    </message>
    <message>
        <source>Rows with a switch</source>
        <translation>带开关的行</translation>
    </message>
    <message>
        <source>Bluetooth</source>
        <translation>蓝牙</translation>
    </message>
    <message>
        <source>Visible to others</source>
        <translation>对其他设备可见</translation>
    </message>
    <message>
        <source>Discovering...</source>
        <translation>正在搜索...</translation>
    </message>
    <message>
        <source>WIFI</source>
        <translation>无线网络</translation>
    </message>
    <message>
        <source>Level slider</source>
        <translation>级别滑块</translation>
    </message>
    <message>
        <source>Clickable label</source>
        <translation>可点击的标签</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Spinner</source>
        <translation>等待动画</translation>
    </message>
    <message>
        <source>Progress panel</source>
        <translation>进度面板</translation>
    </message>
    <message>
        <source>Connecting, please wait...</source>
        <translation>正在连接，请稍候...</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>The network Kitchen radio could not be joined: wrong password</source>
        <translation>无法加入厨房的无线网络：密码错误</translation>
    </message>
    <message>
        <source>Wrong password, please try again</source>
        <translation>密码错误，请重新输入</translation>
    </message>
    <message>
        <source>Networks</source>
        <translation>网络列表</translation>
    </message>
    <message>
        <source>Kitchen radio</source>
        <translation>厨房的无线网络</translation>
    </message>
    <message>
        <source>Coffee shop</source>
        <translation>咖啡厅的无线网络</translation>
    </message>
    <message>
        <source>Guests</source>
        <translation>访客网络</translation>
    </message>
    <message>
        <source>Password field</source>
        <translation>密码输入框</translation>
    </message>
    <message>
        <source>Enter the password</source>
        <translation>请输入密码</translation>
    </message>
    <message>
        <source>Letters</source>
        <translation>字母</translation>
    </message>
    <message>
        <source>Capitals</source>
        <translation>大写字母</translation>
    </message>
    <message>
        <source>Digits</source>
        <translation>数字</translation>
    </message>
    <message>
        <source>Symbols</source>
        <translation>符号</translation>
    </message>
    <message>
        <source>More symbols</source>
        <translation>更多符号</translation>
    </message>
    <message>
        <source>Wi-Fi settings</source>
        <translation>无线网络设置</translation>
    </message>
</context>
<context>
    <name>TypingSample</name>
    <message>
        <source>Type something</source>
        <translation>请输入文字</translation>
    </message>
</context>
</TS>
