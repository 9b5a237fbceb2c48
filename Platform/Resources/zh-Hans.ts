<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_Hans" sourcelanguage="en">
<context>
    <name>Platform</name>
    <message>
        <source>The answer is too large.</source>
        <translation>响应内容过大。</translation>
    </message>
    <message>
        <source>The connection timed out.</source>
        <translation>连接超时。</translation>
    </message>
    <message>
        <source>The connection was cancelled.</source>
        <translation>连接已取消。</translation>
    </message>
    <message>
        <source>The connection was closed.</source>
        <translation>连接已关闭。</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>请求超时。</translation>
    </message>
    <message>
        <source>The notification service does not answer.</source>
        <translation>通知服务没有响应。</translation>
    </message>
    <message>
        <source>The notification service refused: %1</source>
        <translation>通知服务拒绝了请求：%1</translation>
    </message>
    <message>
        <source>The service does not answer.</source>
        <translation>服务没有响应。</translation>
    </message>
    <message>
        <source>There is no notification service.</source>
        <translation>没有可用的通知服务。</translation>
    </message>
    <message>
        <source>The server refused the connection (%1).</source>
        <translation>服务器拒绝了连接（%1）。</translation>
    </message>
</context>
</TS>
