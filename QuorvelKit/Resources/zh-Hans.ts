<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_Hans" sourcelanguage="en">
<context>
    <name>QuorvelKit</name>
    <message>
        <source>24 hours</source>
        <translation>24 小时</translation>
    </message>
    <message>
        <source>7 days</source>
        <translation>7 天</translation>
    </message>
    <message>
        <source>Couldn&apos;t change launch at login: %1</source>
        <translation>无法更改登录时启动设置：%1</translation>
    </message>
    <message>
        <source>Couldn&apos;t save alerts: %1</source>
        <translation>无法保存提醒：%1</translation>
    </message>
    <message>
        <source>Couldn&apos;t save watchlist: %1</source>
        <translation>无法保存自选列表：%1</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>Falls below %1</source>
        <translation>跌破 %1</translation>
    </message>
    <message>
        <source>Follow system</source>
        <translation>跟随系统</translation>
    </message>
    <message>
        <source>Gain exceeds</source>
        <translation>涨幅超过</translation>
    </message>
    <message>
        <source>Gain exceeds %1</source>
        <translation>涨幅超过 %1</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Loss exceeds</source>
        <translation>跌幅超过</translation>
    </message>
    <message>
        <source>Loss exceeds %1</source>
        <translation>跌幅超过 %1</translation>
    </message>
    <message>
        <source>Price falls below</source>
        <translation>价格跌破</translation>
    </message>
    <message>
        <source>Price rises above</source>
        <translation>价格涨破</translation>
    </message>
    <message>
        <source>Rises above %1</source>
        <translation>涨破 %1</translation>
    </message>
    <message>
        <source>Now %1  %2</source>
        <translation>现价 %1  %2</translation>
    </message>
    <message>
        <source>Couldn&apos;t deliver notification: %1</source>
        <translation>无法发送通知：%1</translation>
    </message>
</context>
</TS>
