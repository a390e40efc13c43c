<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>EntryText</name>
    <message>
        <source>Newest trailers</source>
        <translation>最新预告片</translation>
    </message>
    <message>
        <source>Left out: it does not say how many trailers of which width</source>
        <translation>已略过：未指明预告片的数量和宽度</translation>
    </message>
    <message>
        <source>Left out: a web page, no movie</source>
        <translation>已略过：是网页而不是影片</translation>
    </message>
    <message>
        <source>Cannot be opened: %1</source>
        <translation>无法打开：%1</translation>
    </message>
    <message>
        <source>Web content, %1</source>
        <translation>网页内容，%1</translation>
    </message>
    <message>
        <source>%1: cannot be opened, %2</source>
        <translation>%1：无法打开，%2</translation>
    </message>
    <message>
        <source>A click on the sign looks again.</source>
        <translation>点击该标志可重新检查。</translation>
    </message>
    <message>
        <source>The newest trailer, %1 pixels wide</source>
        <translation>最新的预告片，宽 %1 像素</translation>
    </message>
    <message>
        <source>%1 newest trailers, each %2 pixels wide</source>
        <translation>最新的 %1 部预告片，每部宽 %2 像素</translation>
    </message>
    <message>
        <source>All trailers, each %1 pixels wide</source>
        <translation>所有预告片，每部宽 %1 像素</translation>
    </message>
    <message>
        <source>Left out: it names no folder of this machine</source>
        <translation>已略过：不是本机的文件夹</translation>
    </message>
    <message>
        <source>Folder, %1</source>
        <translation>文件夹，%1</translation>
    </message>
    <message>
        <source>Folder without movies, %1</source>
        <translation>没有影片的文件夹，%1</translation>
    </message>
    <message>
        <source>Folder with one movie, %1</source>
        <translation>有一部影片的文件夹，%1</translation>
    </message>
    <message>
        <source>Folder with %L1 movies, %2</source>
        <translation>有 %L1 部影片的文件夹，%2</translation>
    </message>
    <message>
        <source>List, %1</source>
        <translation>列表，%1</translation>
    </message>
    <message>
        <source>List without movies, %1</source>
        <translation>没有影片的列表，%1</translation>
    </message>
    <message>
        <source>List with one movie, %1</source>
        <translation>有一部影片的列表，%1</translation>
    </message>
    <message>
        <source>List with %L1 movies, %2</source>
        <translation>有 %L1 部影片的列表，%2</translation>
    </message>
    <message>
        <source>Starred</source>
        <translation>已加星标</translation>
    </message>
    <message>
        <source>Plays by day</source>
        <translation>白天播放</translation>
    </message>
    <message>
        <source>Plays at night</source>
        <translation>夜间播放</translation>
    </message>
    <message>
        <source>Plays from %1 until %2</source>
        <translation>%1 至 %2 播放</translation>
    </message>
</context>
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
    <message>
        <source>Add Movie</source>
        <translation>添加影片</translation>
    </message>
    <message>
        <source>No movie selected</source>
        <translation>未选择影片</translation>
    </message>
    <message>
        <source>Add movies in the settings</source>
        <translation>请在设置中添加影片</translation>
    </message>
    <message>
        <source>No movie could be loaded</source>
        <translation>无法载入任何影片</translation>
    </message>
    <message>
        <source>Check the playlist and the network</source>
        <translation>请检查播放列表和网络</translation>
    </message>
    <message>
        <source>The settings file could not be read. It was kept as %1.</source>
        <translation>无法读取设置文件。它已另存为 %1。</translation>
    </message>
    <message>
        <source>The settings could not be saved in %1. They are lost when this window closes.</source>
        <translation>无法将设置保存到 %1。关闭此窗口后设置将会丢失。</translation>
    </message>
    <message>
        <source>Failed to save the movie as %1.
%2</source>
        <translation>无法将影片存储为 %1。
%2</translation>
    </message>
    <message>
        <source>The folder %1 cannot be shown.</source>
        <translation>无法显示文件夹 %1。</translation>
    </message>
    <message>
        <source>There are no movies in what was dropped.</source>
        <translation>拖放的内容中没有影片。</translation>
    </message>
    <message>
        <source>Looking for movies in what was dropped…</source>
        <translation>正在拖放的内容中查找影片…</translation>
    </message>
    <message>
        <source>The disk does not answer. Movies may be missing from what was dropped.</source>
        <translation>磁盘没有响应。拖放的内容中可能有影片未被添加。</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>添加文件夹</translation>
    </message>
    <message>
        <source>Sound is off</source>
        <translation>声音已关闭</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>音量：%1%</translation>
    </message>
    <message>
        <source>There is no other movie</source>
        <translation>没有其他影片</translation>
    </message>
    <message>
        <source>Not played any more (U takes that back)</source>
        <translation>不再播放（按 U 撤销）</translation>
    </message>
    <message>
        <source>Nothing to take back</source>
        <translation>没有可撤销的操作</translation>
    </message>
    <message>
        <source>Played again from now on</source>
        <translation>从现在起重新播放</translation>
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
</context>
<context>
    <name>MoreOptions</name>
    <message>
        <source>&amp;Remember what was shown</source>
        <translation>记住已播放的影片(&amp;R)</translation>
    </message>
    <message>
        <source>In random order no movie comes twice before all were seen.</source>
        <translation>随机播放时，全部看过之前不会重复任何影片。</translation>
    </message>
    <message>
        <source>C&amp;hange movies:</source>
        <translation>切换影片(&amp;H)：</translation>
    </message>
    <message>
        <source>A longer movie gives way to the next one then.</source>
        <translation>更长的影片届时让位给下一部。</translation>
    </message>
    <message>
        <source>At their end</source>
        <translation>播完时</translation>
    </message>
    <message>
        <source>Begin any&amp;where in a movie</source>
        <translation>从影片任意处开始(&amp;W)</translation>
    </message>
    <message>
        <source>And not at its beginning, so that long ones are seen whole in time.</source>
        <translation>而不是从头开始，这样长片久而久之也能看全。</translation>
    </message>
    <message>
        <source>&amp;Dissolve:</source>
        <translation>叠化(&amp;D)：</translation>
    </message>
    <message>
        <source>One movie becomes the next one so slowly.</source>
        <translation>一部影片以此时长过渡到下一部。</translation>
    </message>
    <message>
        <source>&amp;Keep movies of sites:</source>
        <translation>保留网站的影片(&amp;K)：</translation>
    </message>
    <message>
        <source>They play from the disk the next time; the newest are fetched ahead.</source>
        <translation>下次从磁盘播放；最新的会提前下载。</translation>
    </message>
    <message>
        <source>L&amp;atitude:</source>
        <translation>纬度(&amp;A)：</translation>
    </message>
    <message>
        <source>In degrees, less than nought in the south. Tells when it is day, for what plays by day.</source>
        <translation>以度为单位，南纬为负。用于判断白天，供白天播放的影片使用。</translation>
    </message>
    <message>
        <source>L&amp;ongitude:</source>
        <translation>经度(&amp;O)：</translation>
    </message>
    <message>
        <source>In degrees, less than nought in the west. Without both day is from 7 to 19.</source>
        <translation>以度为单位，西经为负。两者缺一则白天为 7 点到 19 点。</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>影片</translation>
    </message>
    <message>
        <source>On the Picture</source>
        <translation>画面上</translation>
    </message>
    <message>
        <source>Show the &amp;title</source>
        <translation>显示标题(&amp;T)</translation>
    </message>
    <message>
        <source>In a corner that changes, with the folder or the site it is from.</source>
        <translation>在变换的角落，附其文件夹或网站。</translation>
    </message>
    <message>
        <source>Show the ti&amp;me</source>
        <translation>显示时间(&amp;M)</translation>
    </message>
    <message>
        <source>As the clock of this desktop has it.</source>
        <translation>按此桌面时钟的格式。</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>控制</translation>
    </message>
    <message>
        <source>Ke&amp;ys for the movie</source>
        <translation>影片按键(&amp;Y)</translation>
    </message>
    <message>
        <source>Arrows change movie and volume, i shows the title, d never plays a movie again, u takes that back.</source>
        <translation>方向键切换影片和音量，i 显示标题，d 不再播放该影片，u 撤销。</translation>
    </message>
    <message>
        <source>&amp;Programs may control it</source>
        <translation>允许程序控制(&amp;P)</translation>
    </message>
    <message>
        <source>The desktop&apos;s media controls, and &quot;kestro next&quot; and its like.</source>
        <translation>桌面的媒体控制，以及“kestro next”等命令。</translation>
    </message>
    <message>
        <source>Where You Are</source>
        <translation>所在位置</translation>
    </message>
    <message>
        <source>not known</source>
        <comment>degrees of latitude or longitude</comment>
        <translation>未知</translation>
    </message>
    <message>
        <source>%1 s</source>
        <comment>seconds</comment>
        <translation>%1 秒</translation>
    </message>
    <message>
        <source>%1 min</source>
        <comment>minutes</comment>
        <translation>%1 分钟</translation>
    </message>
    <message>
        <source>None</source>
        <comment>no dissolve</comment>
        <translation>无</translation>
    </message>
    <message>
        <source>None</source>
        <comment>no movie is kept</comment>
        <translation>不保留</translation>
    </message>
</context>
<context>
    <name>MovieFault</name>
    <message>
        <source>no such file</source>
        <translation>文件不存在</translation>
    </message>
    <message>
        <source>not a file</source>
        <translation>不是文件</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>无法读取</translation>
    </message>
    <message>
        <source>empty file</source>
        <translation>文件为空</translation>
    </message>
    <message>
        <source>not a kind of file that holds movies</source>
        <translation>不是包含影片的文件类型</translation>
    </message>
    <message>
        <source>no moving picture in it</source>
        <translation>其中没有活动画面</translation>
    </message>
    <message>
        <source>no decoder for %1</source>
        <translation>没有 %1 的解码器</translation>
    </message>
    <message>
        <source>too large: %1</source>
        <translation>太大：%1</translation>
    </message>
    <message>
        <source>damaged, or no movie</source>
        <translation>已损坏，或不是影片</translation>
    </message>
    <message>
        <source>no answer in time</source>
        <translation>未及时响应</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>无法连接服务器</translation>
    </message>
    <message>
        <source>the server does not have it</source>
        <translation>服务器上没有</translation>
    </message>
    <message>
        <source>the server refuses it</source>
        <translation>服务器拒绝提供</translation>
    </message>
    <message>
        <source>movies are played from files, http and https only</source>
        <translation>只能播放来自文件、http 和 https 的影片</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>内存不足</translation>
    </message>
</context>
<context>
    <name>SSConfig</name>
    <message>
        <source>Screen Saver Options</source>
        <translation>屏幕保护程序选项</translation>
    </message>
    <message>
        <source>&amp;Playlist</source>
        <translation>播放列表(&amp;P)</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>播放列表</translation>
    </message>
    <message>
        <source>The movies that play, from the first to the last</source>
        <translation>依次播放的影片，从第一部到最后一部</translation>
    </message>
    <message>
        <source>Add &amp;Movie…</source>
        <translation>添加影片(&amp;M)…</translation>
    </message>
    <message>
        <source>Adds movie files</source>
        <translation>添加影片文件</translation>
    </message>
    <message>
        <source>Add &amp;URL…</source>
        <translation>添加 URL(&amp;U)…</translation>
    </message>
    <message>
        <source>Adds a movie on a server, by its address</source>
        <translation>通过地址添加服务器上的影片</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>删除(&amp;D)</translation>
    </message>
    <message>
        <source>Takes the selected movies out of the playlist</source>
        <translation>从播放列表中移除所选影片</translation>
    </message>
    <message>
        <source>&amp;Trailers…</source>
        <translation>预告片(&amp;T)…</translation>
    </message>
    <message>
        <source>Browses the trailers that were found, and adds them</source>
        <translation>浏览并添加找到的预告片</translation>
    </message>
    <message>
        <source>Th&amp;eme Movies…</source>
        <translation>主题影片(&amp;E)…</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Play &amp;sound</source>
        <translation>播放声音(&amp;S)</translation>
    </message>
    <message>
        <source>The first monitor plays the sound of its movies</source>
        <translation>第一台显示器播放其影片的声音</translation>
    </message>
    <message>
        <source>Play in &amp;random order</source>
        <translation>随机播放(&amp;R)</translation>
    </message>
    <message>
        <source>Each movie plays once before any plays again</source>
        <translation>每部影片都播放一次之后才会重复</translation>
    </message>
    <message>
        <source>Continue where the &amp;last run stopped</source>
        <translation>从上次停止处继续(&amp;L)</translation>
    </message>
    <message>
        <source>Starts with the movie, and at the place, where it was stopped</source>
        <translation>从停止时的影片和位置开始</translation>
    </message>
    <message>
        <source>Play &amp;back and forth</source>
        <translation>来回播放(&amp;B)</translation>
    </message>
    <message>
        <source>Plays a playlist of one movie forwards, then backwards</source>
        <translation>将只有一部影片的播放列表正向播放，再反向播放</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>&amp;Full screen</source>
        <translation>全屏(&amp;F)</translation>
    </message>
    <message>
        <source>Movies fill the screen; otherwise they move about in a smaller size</source>
        <translation>影片填满屏幕；否则以较小的尺寸四处移动</translation>
    </message>
    <message>
        <source>F&amp;it</source>
        <translation>适合屏幕(&amp;I)</translation>
    </message>
    <message>
        <source>As large as the whole picture fits on the screen</source>
        <translation>在屏幕上完整显示画面的最大尺寸</translation>
    </message>
    <message>
        <source>Stretc&amp;h</source>
        <translation>拉伸(&amp;H)</translation>
    </message>
    <message>
        <source>All over the screen, whatever the shape of the picture</source>
        <translation>铺满整个屏幕，不论画面形状</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>放大(&amp;Z)</translation>
    </message>
    <message>
        <source>Large enough to cover the screen; what lies outside is cut off</source>
        <translation>放大到覆盖屏幕；超出部分被裁掉</translation>
    </message>
    <message>
        <source>Smaller Than the Screen</source>
        <translation>小于屏幕</translation>
    </message>
    <message>
        <source>Movement:</source>
        <translation>移动：</translation>
    </message>
    <message>
        <source>Fl&amp;y</source>
        <translation>飞跃(&amp;Y)</translation>
    </message>
    <message>
        <source>The movie stands still, and now and then goes to another place</source>
        <translation>影片静止不动，不时移到别处</translation>
    </message>
    <message>
        <source>Bou&amp;nce</source>
        <translation>弹跳(&amp;N)</translation>
    </message>
    <message>
        <source>The movie drifts about and bounces off the edges of the screen</source>
        <translation>影片四处漂移，并在屏幕边缘弹回</translation>
    </message>
    <message>
        <source>New place:</source>
        <translation>更换位置：</translation>
    </message>
    <message>
        <source>E&amp;very</source>
        <translation>每隔(&amp;V)</translation>
    </message>
    <message>
        <source>The movie goes to another place after so many seconds</source>
        <translation>影片在指定秒数后移到别处</translation>
    </message>
    <message>
        <source>Seconds until the movie goes to another place</source>
        <translation>影片移到别处之前的秒数</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>&amp;When the movie ends</source>
        <translation>影片结束时(&amp;W)</translation>
    </message>
    <message>
        <source>The movie goes to another place at its end</source>
        <translation>影片在结束时移到别处</translation>
    </message>
    <message>
        <source>Sc&amp;ale:</source>
        <translation>比例(&amp;A)：</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>比例</translation>
    </message>
    <message>
        <source>Size of the movie, 1 for its own</source>
        <translation>影片的大小，1 为原始大小</translation>
    </message>
    <message>
        <source>Size of the movie; 1 is its own</source>
        <translation>影片的大小；1 为原始大小</translation>
    </message>
    <message>
        <source>Scale as a number</source>
        <translation>比例数值</translation>
    </message>
    <message>
        <source>Bac&amp;kground:</source>
        <translation>背景(&amp;K)：</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>The screen saver that runs behind the movies</source>
        <translation>在影片后面运行的屏幕保护程序</translation>
    </message>
    <message>
        <source>Leave fadin&amp;g pictures behind</source>
        <translation>留下渐隐的画面(&amp;G)</translation>
    </message>
    <message>
        <source>Where a movie was, its picture stays behind and fades out</source>
        <translation>影片离开后，其画面留在原处并渐渐隐去</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Moves the selected movie up (Alt+Up)</source>
        <translation>上移所选影片（Alt+↑）</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Moves the selected movie down (Alt+Down)</source>
        <translation>下移所选影片（Alt+↓）</translation>
    </message>
    <message>
        <source>Browses the background movies that come with Kestro</source>
        <translation>浏览 Kestro 附带的背景影片</translation>
    </message>
    <message>
        <source>Add Folder…</source>
        <translation>添加文件夹…</translation>
    </message>
    <message>
        <source>Adds a folder: the movies in it, and those that come into it</source>
        <translation>添加文件夹：其中的影片以及之后放入的影片</translation>
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
    <message>
        <source>Trailers selected:</source>
        <translation>所选预告片：</translation>
    </message>
</context>
<context>
    <name>URLPanel</name>
    <message>
        <source>Add URL</source>
        <translation>添加 URL</translation>
    </message>
    <message>
        <source>&amp;Address of a movie, or of Flash content:</source>
        <translation>影片或 Flash 内容的地址(&amp;A)：</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
</context>
<context>
    <name>kestro::ConfigSheet</name>
    <message>
        <source>seconds: all the time</source>
        <translation>秒：不停移动</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
</context>
<context>
    <name>kestro::DoctorWindow</name>
    <message>
        <source>C&amp;opy</source>
        <translation>复制(&amp;O)</translation>
    </message>
    <message>
        <source>Something Wrong?</source>
        <translation>有问题吗？</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>检查结果</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Looking…</source>
        <translation>正在检查…</translation>
    </message>
    <message>
        <source>Cannot start %1: %2</source>
        <translation>无法启动 %1：%2</translation>
    </message>
    <message>
        <source>Nothing could be found out.</source>
        <translation>没能查出什么。</translation>
    </message>
</context>
<context>
    <name>kestro::HoursPanel</name>
    <message>
        <source>Play Between</source>
        <translation>播放时间段</translation>
    </message>
    <message>
        <source>&amp;From:</source>
        <translation>从(&amp;F)：</translation>
    </message>
    <message>
        <source>&amp;Until:</source>
        <translation>到(&amp;U)：</translation>
    </message>
</context>
<context>
    <name>kestro::IdlePanel</name>
    <message>
        <source>&amp;Start by itself when away for</source>
        <translation>离开后自动启动(&amp;S)：</translation>
    </message>
    <message>
        <source> min</source>
        <comment>minutes, after their number</comment>
        <translation> 分钟</translation>
    </message>
    <message>
        <source>Minutes until the saver starts</source>
        <translation>启动屏幕保护程序前的分钟数</translation>
    </message>
    <message>
        <source>Nothing starts the saver by itself now.</source>
        <translation>目前不会自动启动屏幕保护程序。</translation>
    </message>
    <message>
        <source>never</source>
        <comment>black after so many minutes, or never</comment>
        <translation>从不</translation>
    </message>
    <message>
        <source>Minutes until the saver is black</source>
        <translation>屏幕保护程序变黑前的分钟数</translation>
    </message>
    <message>
        <source>From then on nothing plays, and the displays can sleep</source>
        <translation>此后不再播放，显示器可以休眠</translation>
    </message>
    <message>
        <source>&amp;black after</source>
        <comment>so many minutes, or never</comment>
        <translation>变黑等待(&amp;B)</translation>
    </message>
</context>
<context>
    <name>kestro::IdleWords</name>
    <message>
        <source>Now: %1 looks after this session.</source>
        <translation>现在：由 %1 负责此会话。</translation>
    </message>
    <message>
        <source>Now: the saver is shown.</source>
        <translation>现在：正在显示屏幕保护程序。</translation>
    </message>
    <message>
        <source>Now kept from starting: %1.</source>
        <translation>现在不会启动：%1。</translation>
    </message>
    <message>
        <source>The saver ended unexpectedly the last time.</source>
        <translation>屏幕保护程序上次意外结束。</translation>
    </message>
    <message>
        <source>Now: waiting until you are away.</source>
        <translation>现在：等待您离开。</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>what keeps the saver from starting, and who</comment>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>a program asks for it</source>
        <translation>有程序要求如此</translation>
    </message>
    <message>
        <source>the session is locked</source>
        <translation>会话已锁定</translation>
    </message>
    <message>
        <source>the machine goes to sleep</source>
        <translation>计算机即将睡眠</translation>
    </message>
    <message>
        <source>the lid is closed</source>
        <translation>盖子已合上</translation>
    </message>
    <message>
        <source>power is to be saved</source>
        <translation>需要节省电量</translation>
    </message>
    <message>
        <source>the microphone is in use</source>
        <translation>麦克风正在使用</translation>
    </message>
    <message>
        <source>the camera is in use</source>
        <translation>摄像头正在使用</translation>
    </message>
    <message>
        <source>a game pad is in use</source>
        <translation>游戏手柄正在使用</translation>
    </message>
    <message>
        <source>a full-screen window plays sound</source>
        <translation>全屏窗口正在播放声音</translation>
    </message>
</context>
<context>
    <name>kestro::MoreWindow</name>
    <message>
        <source>More</source>
        <translation>更多</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
</context>
<context>
    <name>kestro::PanelWindow</name>
    <message>
        <source>Sort by &amp;URL</source>
        <translation>按 URL 排序(&amp;U)</translation>
    </message>
    <message>
        <source>Sort by D&amp;ate</source>
        <translation>按日期排序(&amp;A)</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>扫描</translation>
    </message>
    <message>
        <source>Cl&amp;ose</source>
        <translation>关闭(&amp;O)</translation>
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
    <name>kestro::PlaylistMenu</name>
    <message>
        <source>&amp;Open Folder</source>
        <translation>打开文件夹(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Look Again</source>
        <translation>重新检查(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Star</source>
        <translation>星标(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Plays</source>
        <translation>播放时间(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Always</source>
        <translation>始终(&amp;A)</translation>
    </message>
    <message>
        <source>By &amp;Day</source>
        <translation>白天(&amp;D)</translation>
    </message>
    <message>
        <source>At &amp;Night</source>
        <translation>夜间(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Between…</source>
        <translation>时间段(&amp;B)…</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistPane</name>
    <message>
        <source>Add movies with the buttons below, or drop files and folders here.</source>
        <translation>用下面的按钮添加影片，或将文件和文件夹拖放到此处。</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistTable</name>
    <message>
        <source>Movie</source>
        <translation>影片</translation>
    </message>
</context>
<context>
    <name>kestro::PreferencesWindow</name>
    <message>
        <source>&amp;Options…</source>
        <translation>选项(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Try It</source>
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
    <message>
        <source>Something &amp;Wrong?</source>
        <translation>有问题吗(&amp;W)？</translation>
    </message>
    <message>
        <source>&amp;More…</source>
        <translation>更多(&amp;M)…</translation>
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
        <source>Rows are moved by dragging with Alt held, or with Alt+Up and Alt+Down.</source>
        <translation>按住 Alt 拖动，或用 Alt+↑ 和 Alt+↓ 可移动行。</translation>
    </message>
    <message>
        <source>Rows are moved by dragging, or with Alt+Up and Alt+Down.</source>
        <translation>拖动，或用 Alt+↑ 和 Alt+↓ 可移动行。</translation>
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
    <name>kestro::ScanEndText</name>
    <message>
        <source>Scan finished. Pages read: %1</source>
        <translation>扫描完成。已读取页面：%1</translation>
    </message>
    <message>
        <source>Scan stopped. Pages read: %1</source>
        <translation>扫描已停止。已读取页面：%1</translation>
    </message>
    <message>
        <source>Scan ended: the site has more than fits. Pages read: %1</source>
        <translation>扫描完成：网站内容过多，无法全部读取。已读取页面：%1</translation>
    </message>
    <message>
        <source>The page at this address cannot be read.</source>
        <translation>无法读取此地址的页面。</translation>
    </message>
    <message>
        <source>This is not the address of a page.</source>
        <translation>这不是页面的地址。</translation>
    </message>
    <message>
        <source>The site is being scanned already.</source>
        <translation>该网站正在扫描中。</translation>
    </message>
    <message>
        <source>The site&apos;s host is set to %1, but this page is on %2: no link is followed.</source>
        <translation>网站主机设置为 %1，但此页面位于 %2：不会跟随任何链接。</translation>
    </message>
    <message>
        <source>A second scan at the same time cannot be kept away: %1</source>
        <translation>无法阻止同时进行的另一次扫描：%1</translation>
    </message>
    <message>
        <source>Pages refused: %1. A start page without &lt;html&gt; has pages read as ASCII, and these hold other letters.</source>
        <translation>被拒绝的页面：%1。起始页没有 &lt;html&gt; 时，页面按 ASCII 读取，而这些页面含有其他字符。</translation>
    </message>
    <message>
        <source>The pages that this address leads to were all read before; Clear List forgets them, and a scan reads them again.</source>
        <translation>此地址链接到的页面都已读取过；“清空列表”会清除这些记录，之后扫描会重新读取。</translation>
    </message>
</context>
<context>
    <name>kestro::ScreensPanel</name>
    <message>
        <source>A movie on each</source>
        <translation>每个屏幕各放一部影片</translation>
    </message>
    <message>
        <source>The same movie on all</source>
        <translation>所有屏幕放同一影片</translation>
    </message>
    <message>
        <source>One movie across all</source>
        <translation>一部影片横跨所有屏幕</translation>
    </message>
    <message>
        <source>Monitors that show the saver</source>
        <translation>显示屏幕保护程序的显示器</translation>
    </message>
    <message>
        <source>The others are black meanwhile</source>
        <translation>其他显示器此时为黑屏</translation>
    </message>
    <message>
        <source>Scree&amp;ns:</source>
        <comment>how they share the saver</comment>
        <translation>屏幕(&amp;N)：</translation>
    </message>
    <message>
        <source>All monitors</source>
        <translation>所有显示器</translation>
    </message>
    <message>
        <source>The first monitor alone</source>
        <translation>仅第一台显示器</translation>
    </message>
    <message>
        <source>%1 alone</source>
        <translation>仅 %1</translation>
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
    <name>kestro::StarterPane</name>
    <message>
        <source>Begin with one of these:</source>
        <translation>可以从这些开始：</translation>
    </message>
    <message>
        <source>Your videos</source>
        <translation>您的视频</translation>
    </message>
    <message>
        <source>Add Your Videos</source>
        <translation>添加您的视频</translation>
    </message>
    <message>
        <source>Theme movies</source>
        <translation>主题影片</translation>
    </message>
    <message>
        <source>Add the Theme Movies</source>
        <translation>添加主题影片</translation>
    </message>
    <message>
        <source>Intro</source>
        <translation>片头</translation>
    </message>
    <message>
        <source>Add the Intro</source>
        <translation>添加片头</translation>
    </message>
    <message>
        <source>The movie that introduces Kestro</source>
        <translation>介绍 Kestro 的影片</translation>
    </message>
    <message>
        <source>Backgrounds that come with Kestro: %1</source>
        <translation>Kestro 附带的背景：%1</translation>
    </message>
    <message>
        <source>Movies found: %1</source>
        <translation>找到的影片：%1</translation>
    </message>
</context>
<context>
    <name>kestro::StarterRow</name>
    <message>
        <source>Add</source>
        <translation>添加</translation>
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
    <message>
        <source>&amp;Add</source>
        <translation>添加(&amp;A)</translation>
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
    <message>
        <source>A mark of your own: it is kept with the trailer, and changes nothing else</source>
        <translation>您自己的标记：随预告片一起保存，不影响其他任何内容</translation>
    </message>
    <message>
        <source>Ticked</source>
        <translation>已勾选</translation>
    </message>
    <message>
        <source>Not ticked</source>
        <translation>未勾选</translation>
    </message>
</context>
<context>
    <name>kestro::XscreensaverPanel</name>
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
    <message>
        <source>XScreenSaver is not installed. The command &quot;kestro&quot; runs the saver at any time.</source>
        <translation>未安装 XScreenSaver。命令 &quot;kestro&quot; 可随时运行屏幕保护程序。</translation>
    </message>
</context>
</TS>
