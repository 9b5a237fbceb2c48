<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_Hans" sourcelanguage="en">
<context>
    <name>Quorvel</name>
    <message>
        <source>Couldn&apos;t load coin list — search is unavailable</source>
        <translation>无法加载币种列表，搜索功能不可用</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>设置…</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Unpin from Menu Bar</source>
        <translation>从菜单栏取消固定</translation>
    </message>
    <message>
        <source>Pin to Menu Bar</source>
        <translation>固定到菜单栏</translation>
    </message>
    <message>
        <source>Add Alert…</source>
        <translation>添加提醒…</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>移除 %1</translation>
    </message>
    <message>
        <source>Search coins, e.g. BTC</source>
        <translation>搜索币种，例如 BTC</translation>
    </message>
    <message>
        <source>Can&apos;t be saved in the watchlist</source>
        <translation>无法保存到自选列表</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>添加 %1</translation>
    </message>
    <message>
        <source>Search results</source>
        <translation>搜索结果</translation>
    </message>
    <message>
        <source>Notifications are off — alerts can&apos;t be delivered</source>
        <translation>通知已关闭，无法发送提醒</translation>
    </message>
    <message>
        <source>No coins yet — search to add one</source>
        <translation>还没有自选币种，搜索即可添加</translation>
    </message>
    <message>
        <source>Right-click a coin to reorder</source>
        <translation>右键点击币种可调整顺序</translation>
    </message>
    <message>
        <source>%1, no price yet</source>
        <translation>%1，暂无价格</translation>
    </message>
    <message>
        <source>%1, out of date</source>
        <translation>%1，价格已过时</translation>
    </message>
    <message>
        <source>Pinned to menu bar</source>
        <translation>已固定到菜单栏</translation>
    </message>
    <message>
        <source>Alert set</source>
        <translation>已设置提醒</translation>
    </message>
    <message>
        <source>Watchlist</source>
        <translation>自选列表</translation>
    </message>
    <message>
        <source>Quorvel Settings</source>
        <translation>Quorvel 设置</translation>
    </message>
</context>
</TS>
