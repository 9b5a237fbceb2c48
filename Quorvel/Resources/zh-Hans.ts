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
        <source>Repeat</source>
        <translation>重复</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Coin</source>
        <translation>币种</translation>
    </message>
    <message>
        <source>Condition</source>
        <translation>条件</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>请选择…</translation>
    </message>
    <message>
        <source>Threshold (%)</source>
        <translation>阈值 (%)</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>阈值</translation>
    </message>
    <message>
        <source>Choose a coin first</source>
        <translation>请先选择币种</translation>
    </message>
    <message>
        <source>Enter the threshold as a plain number, such as 70000</source>
        <translation>请输入不带分隔符的数字作为阈值，例如 70000</translation>
    </message>
    <message>
        <source>Repeats</source>
        <translation>重复提醒</translation>
    </message>
    <message>
        <source>Triggered — toggle to re-enable</source>
        <translation>已触发，重新打开开关即可再次启用</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>删除 %1</translation>
    </message>
    <message>
        <source>Alerts</source>
        <translation>价格提醒</translation>
    </message>
    <message>
        <source>No alerts yet. Add one below, or right-click a coin in the panel.</source>
        <translation>还没有提醒。可在下方添加，或在面板中右键点击币种。</translation>
    </message>
    <message>
        <source>Notifications are off, so alerts can&apos;t be delivered. Allow Quorvel in System Settings → Notifications.</source>
        <translation>通知已关闭，无法发送提醒。请在“系统设置 → 通知”中允许 Quorvel。</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Red up, green down</source>
        <translation>红涨绿跌</translation>
    </message>
    <message>
        <source>Green up, red down</source>
        <translation>绿涨红跌</translation>
    </message>
    <message>
        <source>Color scheme</source>
        <translation>涨跌配色</translation>
    </message>
    <message>
        <source>Chart period</source>
        <translation>走势图周期</translation>
    </message>
    <message>
        <source>General</source>
        <translation>通用</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Restart Now</source>
        <translation>立即重启</translation>
    </message>
    <message>
        <source>Restart to apply the new language</source>
        <translation>重启后应用新语言</translation>
    </message>
    <message>
        <source>Launch Quorvel at login</source>
        <translation>登录时启动 Quorvel</translation>
    </message>
    <message>
        <source>Menu Bar</source>
        <translation>菜单栏</translation>
    </message>
    <message>
        <source>Show icon</source>
        <translation>显示图标</translation>
    </message>
    <message>
        <source>Show up/down arrow</source>
        <translation>显示涨跌箭头</translation>
    </message>
    <message>
        <source>Rotate one</source>
        <translation>轮流显示</translation>
    </message>
    <message>
        <source>Side by side</source>
        <translation>并排显示</translation>
    </message>
    <message>
        <source>Fixed one</source>
        <translation>固定显示一个</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>显示方式</translation>
    </message>
    <message>
        <source>Shows the first pinned coin, or the first in your watchlist</source>
        <translation>显示第一个固定的币种；没有固定币种时显示自选列表中的第一个</translation>
    </message>
    <message>
        <source>Right-click a coin in the panel to pin it</source>
        <translation>在面板中右键点击币种即可固定</translation>
    </message>
    <message>
        <source>Price and change</source>
        <translation>价格和涨跌幅</translation>
    </message>
    <message>
        <source>Price only</source>
        <translation>仅价格</translation>
    </message>
    <message>
        <source>Change only</source>
        <translation>仅涨跌幅</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>显示内容</translation>
    </message>
    <message>
        <source>Rotation interval: %1s</source>
        <translation>轮换间隔：%1 秒</translation>
    </message>
    <message>
        <source>Show up to %1</source>
        <translation>最多显示 %1 个</translation>
    </message>
    <message>
        <source>Closing the stream of prices</source>
        <translation>正在关闭行情推送</translation>
    </message>
    <message>
        <source>Quorvel Settings</source>
        <translation>Quorvel 设置</translation>
    </message>
    <message>
        <source>Not traded</source>
        <translation>未交易</translation>
    </message>
    <message>
        <source>%1, not traded</source>
        <translation>%1，未交易</translation>
    </message>
    <message>
        <source>Not traded on the exchange</source>
        <translation>交易所不交易此币种</translation>
    </message>
    <message>
        <source>Price of %1</source>
        <translation>价格时间 %1</translation>
    </message>
    <message>
        <source>No connection since %1</source>
        <translation>自 %1 起无连接</translation>
    </message>
    <message>
        <source>Next try at %1</source>
        <translation>下次尝试：%1</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>The exchange does not serve this place. Its data-only mirror may.</source>
        <translation>交易所不向此地区提供服务，但其仅数据镜像可能可用。</translation>
    </message>
    <message>
        <source>The exchange refuses requests from this network. Another network may help.</source>
        <translation>交易所拒绝来自此网络的请求，请尝试其他网络。</translation>
    </message>
    <message>
        <source>The exchange has banned this network for a time. Prices come back by themselves.</source>
        <translation>交易所已暂时封禁此网络，价格会自动恢复。</translation>
    </message>
    <message>
        <source>The exchange asks this network for a pause. Prices come back by themselves.</source>
        <translation>交易所要求此网络暂停请求，价格会自动恢复。</translation>
    </message>
    <message>
        <source>The exchange refuses the connection.</source>
        <translation>交易所拒绝连接。</translation>
    </message>
    <message>
        <source>Settings can&apos;t be saved. They hold until Quorvel quits.</source>
        <translation>无法保存设置，更改仅在退出 Quorvel 前有效。</translation>
    </message>
    <message>
        <source>Use the Data-Only Mirror</source>
        <translation>使用仅数据镜像</translation>
    </message>
    <message>
        <source>Use the Exchange Itself</source>
        <translation>使用交易所主站</translation>
    </message>
    <message>
        <source>Prices come from the exchange&apos;s data-only mirror</source>
        <translation>价格来自交易所的仅数据镜像</translation>
    </message>
    <message>
        <source>It is tried again every few seconds.</source>
        <translation>每隔几秒会自动重试。</translation>
    </message>
    <message>
        <source>A slim window at the screen&apos;s edge; drag it where you like</source>
        <translation>屏幕边缘的细长窗口，可拖到任意位置</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自动</translation>
    </message>
    <message>
        <source>Can you see the prices in the panel?</source>
        <translation>您能在面板上看到价格吗？</translation>
    </message>
    <message>
        <source>Docked window</source>
        <translation>停靠窗口</translation>
    </message>
    <message>
        <source>Icon only</source>
        <translation>仅图标</translation>
    </message>
    <message>
        <source>No, Show Them Otherwise…</source>
        <translation>看不到，换种方式…</translation>
    </message>
    <message>
        <source>Panel&apos;s label</source>
        <translation>面板标签</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Prices in the tooltip and the popover alone</source>
        <translation>价格仅显示在提示和弹出面板中</translation>
    </message>
    <message>
        <source>Show prices in</source>
        <translation>价格显示于</translation>
    </message>
    <message>
        <source>Strip</source>
        <translation>浮动条</translation>
    </message>
    <message>
        <source>Text in the panel&apos;s own font, beside the icon</source>
        <translation>以面板字体显示在图标旁的文字</translation>
    </message>
    <message>
        <source>The line in colour, for panels that show wide pictures</source>
        <translation>彩色行情，适用于能显示宽图片的面板</translation>
    </message>
    <message>
        <source>The line in colour, in trays that take windows</source>
        <translation>彩色行情，适用于可停靠窗口的托盘</translation>
    </message>
    <message>
        <source>What fits this desktop</source>
        <translation>适合当前桌面的方式</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>能</translation>
    </message>
    <message>
        <source>No panel here shows status items</source>
        <translation>这里没有显示状态图标的面板</translation>
    </message>
    <message>
        <source>No tray here takes windows</source>
        <translation>这里没有可停靠窗口的托盘</translation>
    </message>
    <message>
        <source>This panel shows square icons only</source>
        <translation>此面板只显示方形图标</translation>
    </message>
    <message>
        <source>This panel writes no text beside icons</source>
        <translation>此面板不在图标旁显示文字</translation>
    </message>
    <message>
        <source>Windows can&apos;t be placed on this desktop</source>
        <translation>此桌面上无法放置窗口</translation>
    </message>
    <message>
        <source>Prices in the panel itself</source>
        <translation>直接在面板中显示价格</translation>
    </message>
    <message>
        <source>Right-click the panel, choose Add Widgets, and drag Quorvel there.</source>
        <translation>右键点击面板，选择“添加小部件”，然后将 Quorvel 拖到面板上。</translation>
    </message>
</context>
</TS>
