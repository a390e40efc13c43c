<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>Kestro</name>
    <message>
        <source>You selected &apos;.slideSaver&apos;. 
You may need to restart &apos;System Preferences.app&apos; to take effect properly.</source>
        <translation>您选择了“.slideSaver”。 
可能需要重新启动“System Preferences.app”才能正常生效。</translation>
    </message>
    <message>
        <source>Invalid URL string.</source>
        <translation>URL 无效。</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Failed to create movie.
Please try again.</source>
        <translation>无法打开影片。
请重试。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>LatestPanel</name>
    <message>
        <source>Latest Trailers</source>
        <translation>最新预告片</translation>
    </message>
    <message>
        <source>Adds an entry that always plays the newest trailers found.</source>
        <translation>添加一个条目，始终播放找到的最新预告片。</translation>
    </message>
    <message>
        <source>&amp;Number of trailers:</source>
        <translation>预告片数量(&amp;N)：</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Frame &amp;width:</source>
        <translation>画面宽度(&amp;W)：</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>ThemePanel</name>
    <message>
        <source>Theme Movies</source>
        <translation>主题影片</translation>
    </message>
    <message>
        <source>T&amp;heme movies. Those in red are recommended as backgrounds.</source>
        <translation>主题影片(&amp;H)。红色的推荐用作背景。</translation>
    </message>
    <message>
        <source>Theme movies</source>
        <translation>主题影片</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>播放(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>添加(&amp;A)</translation>
    </message>
</context>
<context>
    <name>TrailerCont</name>
    <message>
        <source>Trailers</source>
        <translation>预告片</translation>
    </message>
    <message>
        <source>Site &amp;address:</source>
        <translation>网站地址(&amp;A)：</translation>
    </message>
    <message>
        <source>The page of a trailer site that a scan begins with</source>
        <translation>开始扫描的预告片网站页面</translation>
    </message>
    <message>
        <source>Looks for trailers on the site, or stops looking</source>
        <translation>在网站上查找预告片，或停止查找</translation>
    </message>
    <message>
        <source>Trailers found</source>
        <translation>找到的预告片</translation>
    </message>
    <message>
        <source>Selected trailers, and all trailers</source>
        <translation>所选预告片数和预告片总数</translation>
    </message>
    <message>
        <source>Scanning</source>
        <translation>正在扫描</translation>
    </message>
    <message>
        <source>&amp;Find:</source>
        <translation>查找(&amp;F)：</translation>
    </message>
    <message>
        <source>Return selects the next trailer whose address contains this text</source>
        <translation>按回车键选择地址中包含此文字的下一个预告片</translation>
    </message>
    <message>
        <source>Forgets all trailers and all pages that were read</source>
        <translation>清除所有预告片和已读取页面的记录</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>清空列表(&amp;C)</translation>
    </message>
    <message>
        <source>Plays the selected trailer in a window of its own</source>
        <translation>在单独的窗口中播放所选预告片</translation>
    </message>
    <message>
        <source>&amp;Preview</source>
        <translation>预览(&amp;P)</translation>
    </message>
    <message>
        <source>Saves the movie file of the selected trailer</source>
        <translation>保存所选预告片的影片文件</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>保存(&amp;S)…</translation>
    </message>
    <message>
        <source>Adds an entry to the playlist that stands for the newest trailers</source>
        <translation>向播放列表添加代表最新预告片的条目</translation>
    </message>
    <message>
        <source>Add &amp;Latest…</source>
        <translation>添加最新预告片(&amp;L)…</translation>
    </message>
    <message>
        <source>Adds the selected trailers to the playlist</source>
        <translation>将所选预告片添加到播放列表</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>添加(&amp;D)</translation>
    </message>
</context>
<context>
    <name>kestro::PanelWindow</name>
    <message>
        <source>Sort by &amp;URL</source>
        <translation>按 URL 排序(&amp;U)</translation>
    </message>
    <message>
        <source>Sort by &amp;Date</source>
        <translation>按日期排序(&amp;D)</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>扫描</translation>
    </message>
</context>
<context>
    <name>kestro::PlayButton</name>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
</context>
<context>
    <name>kestro::PreferencesWindow</name>
    <message>
        <source>&amp;Options…</source>
        <translation>选项(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Try it</source>
        <translation>试用(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Kestro Settings</source>
        <translation>Kestro 设置</translation>
    </message>
    <message>
        <source>The screen saver cannot be loaded.</source>
        <translation>无法载入屏幕保护程序。</translation>
    </message>
</context>
<context>
    <name>kestro::PreviewWindow</name>
    <message>
        <source>Movie Trailer</source>
        <translation>电影预告片</translation>
    </message>
</context>
<context>
    <name>kestro::RQTableViewRowMove</name>
    <message>
        <source>To move a row, drag it, or select it and press Alt+Up or Alt+Down.</source>
        <translation>要移动一行，请拖动它，或选中它后按 Alt+上箭头或 Alt+下箭头。</translation>
    </message>
    <message>
        <source>To move a row, hold Alt and drag it, or select it and press Alt+Up or Alt+Down. Some window managers take the drag with Alt for moving the window: use the keys there.</source>
        <translation>要移动一行，请按住 Alt 拖动它，或选中它后按 Alt+上箭头或 Alt+下箭头。有些窗口管理器会把按住 Alt 的拖动用于移动窗口：此时请使用按键。</translation>
    </message>
</context>
<context>
    <name>kestro::SaveTrailer</name>
    <message>
        <source>%1 already exists.
Replace it?</source>
        <translation>%1 已存在。
要替换吗？</translation>
    </message>
    <message>
        <source>Save Trailer</source>
        <translation>保存预告片</translation>
    </message>
</context>
<context>
    <name>kestro::SaverPreview</name>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
</context>
<context>
    <name>kestro::SaverRun</name>
    <message>
        <source>The saver ended unexpectedly.</source>
        <translation>屏幕保护程序意外退出。</translation>
    </message>
    <message>
        <source>Cannot start %1: %2</source>
        <translation>无法启动 %1：%2</translation>
    </message>
    <message>
        <source>The saver could not run.</source>
        <translation>屏幕保护程序无法运行。</translation>
    </message>
</context>
<context>
    <name>kestro::ScrubBar</name>
    <message>
        <source>Position</source>
        <translation>播放位置</translation>
    </message>
</context>
<context>
    <name>kestro::ThemePanel</name>
    <message>
        <source>Preview of the selected movie</source>
        <translation>所选影片的预览</translation>
    </message>
    <message>
        <source>No theme movies were found.</source>
        <translation>未找到主题影片。</translation>
    </message>
</context>
<context>
    <name>kestro::ThemeTableModel</name>
    <message>
        <source>Recommended</source>
        <translation>推荐</translation>
    </message>
    <message>
        <source>Not recommended</source>
        <translation>不推荐</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>影片</translation>
    </message>
</context>
<context>
    <name>kestro::TrailerDownload</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Saving %1…</source>
        <translation>正在保存 %1…</translation>
    </message>
    <message>
        <source>Save Trailer</source>
        <translation>保存预告片</translation>
    </message>
</context>
<context>
    <name>kestro::TrailerPanel</name>
    <message>
        <source>Scan finished. Pages read: %1</source>
        <translation>扫描完成。已读取页面：%1</translation>
    </message>
    <message>
        <source>Scan stopped. Pages read: %1</source>
        <translation>扫描已停止。已读取页面：%1</translation>
    </message>
    <message>
        <source>The page at this address cannot be read.</source>
        <translation>无法读取此地址的页面。</translation>
    </message>
    <message>
        <source>The site is being scanned already.</source>
        <translation>该网站正在扫描中。</translation>
    </message>
    <message>
        <source>This is not the address of a page.</source>
        <translation>这不是页面的地址。</translation>
    </message>
</context>
<context>
    <name>kestro::TrailerTableModel</name>
    <message>
        <source>SEL</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>SIZE</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>DATE</source>
        <translation>日期</translation>
    </message>
</context>
<context>
    <name>kestro::XscreensaverPanel</name>
    <message>
        <source>XScreenSaver is not installed: nothing starts Kestro by itself when you are away. The command &quot;kestro&quot; runs it at any time.</source>
        <translation>未安装 XScreenSaver：您离开时不会自动启动 Kestro。可随时用命令“kestro”运行它。</translation>
    </message>
    <message>
        <source>Kestro is in your list of XScreenSaver&apos;s savers.</source>
        <translation>Kestro 在您的 XScreenSaver 屏幕保护程序列表中。</translation>
    </message>
    <message>
        <source>Kestro is not in your list of XScreenSaver&apos;s savers.</source>
        <translation>Kestro 不在您的 XScreenSaver 屏幕保护程序列表中。</translation>
    </message>
    <message>
        <source>&amp;Remove from XScreenSaver</source>
        <translation>从 XScreenSaver 移除(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Add to XScreenSaver</source>
        <translation>添加到 XScreenSaver(&amp;A)</translation>
    </message>
</context>
</TS>
