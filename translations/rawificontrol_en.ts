<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>RaBaseWindow</name>
    <message>
        <source>Back</source>
        <translation>Back</translation>
    </message>
</context>
<context>
    <name>RaCircleWait</name>
    <message>
        <source>Please wait</source>
        <translation>Please wait</translation>
    </message>
</context>
<context>
    <name>RaItemPushBtn</name>
    <message>
        <source>正在连接中，请等待...</source>
        <translation>Connecting, please wait...</translation>
    </message>
    <message>
        <source>已连接</source>
        <translation>Connected</translation>
    </message>
</context>
<context>
    <name>RaListwidget</name>
    <message>
        <source>Discovering...</source>
        <translation>Discovering...</translation>
    </message>
    <message>
        <source>WIFI</source>
        <translation>Wi-Fi</translation>
    </message>
</context>
<context>
    <name>RaSliderWidget</name>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Brightness</translation>
    </message>
</context>
<context>
    <name>RaTitleWidget</name>
    <message>
        <source>Back</source>
        <translation>Back</translation>
    </message>
</context>
<context>
    <name>RaVirtualKeyboard</name>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>Letters</source>
        <translation>Letters</translation>
    </message>
    <message>
        <source>Digits</source>
        <translation>Digits</translation>
    </message>
    <message>
        <source>Symbols</source>
        <translation>Symbols</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Space</translation>
    </message>
    <message>
        <source>More symbols</source>
        <translation>More symbols</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>PushButton</source>
        <translation>PushButton</translation>
    </message>
</context>
<context>
    <name>RaWifiInputWnd</name>
    <message>
        <source>密码中不能有这个字符</source>
        <translation>Character not allowed</translation>
    </message>
    <message>
        <source>密码最多%1个字符</source>
        <translation>At most %1 characters</translation>
    </message>
    <message>
        <source>返回</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>密码</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>请输入密码</source>
        <translation>Enter the password</translation>
    </message>
    <message>
        <source>显示密码</source>
        <translation>Show password</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>RaWifiListWidget</name>
    <message>
        <source>MAC  </source>
        <translation>MAC  </translation>
    </message>
    <message>
        <source>No networks found</source>
        <translation>No networks found</translation>
    </message>
    <message>
        <source>Discovering...</source>
        <translation>Discovering...</translation>
    </message>
</context>
<context>
    <name>RaWifiManager</name>
    <message>
        <source>Network Setting</source>
        <translation>Network Settings</translation>
    </message>
</context>
<context>
    <name>RaWifiService</name>
    <message>
        <source>config wifi failed</source>
        <translation>config wifi failed</translation>
    </message>
    <message>
        <source>Wifi network configuration information failed</source>
        <translation>Wifi network configuration information failed</translation>
    </message>
    <message>
        <source>verifying information</source>
        <translation>verifying information</translation>
    </message>
    <message>
        <source>Data verification failed!</source>
        <translation>Data verification failed!</translation>
    </message>
    <message>
        <source>Retrieving the IP information</source>
        <translation>Retrieving the IP information</translation>
    </message>
    <message>
        <source>Setting  Network information</source>
        <translation>Setting network information</translation>
    </message>
    <message>
        <source>info</source>
        <translation>info</translation>
    </message>
    <message>
        <source>User canceled...</source>
        <translation>User canceled...</translation>
    </message>
    <message>
        <source>Failed to obtain IP information</source>
        <translation>Failed to obtain IP information</translation>
    </message>
    <message>
        <source>Network connection error or the server is busy,please try again</source>
        <translation>Network connection error or the server is busy, please try again</translation>
    </message>
    <message>
        <source>Successful connection</source>
        <translation>Successful connection</translation>
    </message>
</context>
</TS>
