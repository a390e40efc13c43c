<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en_US">
<context>
    <name>EntryText</name>
    <message>
        <source>Newest trailers</source>
        <translation>最新の予告編</translation>
    </message>
    <message>
        <source>Left out: it does not say how many trailers of which width</source>
        <translation>省略されます: 予告編の数と幅が指定されていません</translation>
    </message>
    <message>
        <source>Left out: a web page, no movie</source>
        <translation>省略されます: ムービーではなくWebページです</translation>
    </message>
    <message>
        <source>Cannot be opened: %1</source>
        <translation>開けません: %1</translation>
    </message>
    <message>
        <source>Web content, %1</source>
        <translation>Webコンテンツ、%1</translation>
    </message>
    <message>
        <source>%1: cannot be opened, %2</source>
        <translation>%1: 開けません、%2</translation>
    </message>
    <message>
        <source>A click on the sign looks again.</source>
        <translation>印をクリックするともう一度調べます。</translation>
    </message>
    <message>
        <source>The newest trailer, %1 pixels wide</source>
        <translation>最新の予告編、幅 %1 ピクセル</translation>
    </message>
    <message>
        <source>%1 newest trailers, each %2 pixels wide</source>
        <translation>最新の予告編 %1 本、それぞれ幅 %2 ピクセル</translation>
    </message>
    <message>
        <source>All trailers, each %1 pixels wide</source>
        <translation>すべての予告編、それぞれ幅 %1 ピクセル</translation>
    </message>
    <message>
        <source>Left out: it names no folder of this machine</source>
        <translation>除外: このコンピューターのフォルダーではありません</translation>
    </message>
    <message>
        <source>Folder, %1</source>
        <translation>フォルダー、%1</translation>
    </message>
    <message>
        <source>Folder without movies, %1</source>
        <translation>ムービーのないフォルダー、%1</translation>
    </message>
    <message>
        <source>Folder with one movie, %1</source>
        <translation>ムービーが1本のフォルダー、%1</translation>
    </message>
    <message>
        <source>Folder with %L1 movies, %2</source>
        <translation>ムービーが%L1本のフォルダー、%2</translation>
    </message>
    <message>
        <source>List, %1</source>
        <translation>リスト、%1</translation>
    </message>
    <message>
        <source>List without movies, %1</source>
        <translation>ムービーのないリスト、%1</translation>
    </message>
    <message>
        <source>List with one movie, %1</source>
        <translation>ムービーが1本のリスト、%1</translation>
    </message>
    <message>
        <source>List with %L1 movies, %2</source>
        <translation>ムービーが%L1本のリスト、%2</translation>
    </message>
    <message>
        <source>Starred</source>
        <translation>星付き</translation>
    </message>
    <message>
        <source>Plays by day</source>
        <translation>昼間に再生</translation>
    </message>
    <message>
        <source>Plays at night</source>
        <translation>夜間に再生</translation>
    </message>
    <message>
        <source>Plays from %1 until %2</source>
        <translation>%1から%2まで再生</translation>
    </message>
</context>
<context>
    <name>Kestro</name>
    <message>
        <source>You selected &apos;.slideSaver&apos;. 
You may need to restart &apos;System Preferences.app&apos; to take effect properly.</source>
        <translation>“.slideSaver”が選択されました。 
正しく反映するには“System Preferences.app”の再起動が必要な場合があります。</translation>
    </message>
    <message>
        <source>Invalid URL string.</source>
        <translation>URLが正しくありません。</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Failed to create movie.
Please try again.</source>
        <translation>ムービーを開けませんでした。
もう一度やり直してください。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Add Movie</source>
        <translation>ムービーを追加</translation>
    </message>
    <message>
        <source>No movie selected</source>
        <translation>ムービーが選択されていません</translation>
    </message>
    <message>
        <source>Add movies in the settings</source>
        <translation>設定でムービーを追加してください</translation>
    </message>
    <message>
        <source>No movie could be loaded</source>
        <translation>ムービーを読み込めませんでした</translation>
    </message>
    <message>
        <source>Check the playlist and the network</source>
        <translation>再生リストとネットワークを確認してください</translation>
    </message>
    <message>
        <source>The settings file could not be read. It was kept as %1.</source>
        <translation>設定ファイルを読み込めませんでした。%1 として保管しました。</translation>
    </message>
    <message>
        <source>The settings could not be saved in %1. They are lost when this window closes.</source>
        <translation>設定を %1 に保存できませんでした。このウインドウを閉じると失われます。</translation>
    </message>
    <message>
        <source>Failed to save the movie as %1.
%2</source>
        <translation>ムービーを %1 として保存できませんでした。
%2</translation>
    </message>
    <message>
        <source>The folder %1 cannot be shown.</source>
        <translation>フォルダ %1 を表示できません。</translation>
    </message>
    <message>
        <source>There are no movies in what was dropped.</source>
        <translation>ドロップされたものにムービーはありません。</translation>
    </message>
    <message>
        <source>Looking for movies in what was dropped…</source>
        <translation>ドロップされたものからムービーを探しています…</translation>
    </message>
    <message>
        <source>The disk does not answer. Movies may be missing from what was dropped.</source>
        <translation>ディスクが応答しません。ドロップされたもののうち、追加されていないムービーがあるかもしれません。</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>フォルダーを追加</translation>
    </message>
    <message>
        <source>Sound is off</source>
        <translation>サウンドはオフです</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>音量: %1%</translation>
    </message>
    <message>
        <source>There is no other movie</source>
        <translation>ほかのムービーはありません</translation>
    </message>
    <message>
        <source>Not played any more (U takes that back)</source>
        <translation>今後再生しません（U で取り消し）</translation>
    </message>
    <message>
        <source>Nothing to take back</source>
        <translation>取り消すものはありません</translation>
    </message>
    <message>
        <source>Played again from now on</source>
        <translation>今後また再生します</translation>
    </message>
</context>
<context>
    <name>LatestPanel</name>
    <message>
        <source>Latest Trailers</source>
        <translation>最新の予告編</translation>
    </message>
    <message>
        <source>Adds an entry that always plays the newest trailers found.</source>
        <translation>見つかった最新の予告編を常に再生する項目を追加します。</translation>
    </message>
    <message>
        <source>&amp;Number of trailers:</source>
        <translation>予告編の数(&amp;N):</translation>
    </message>
    <message>
        <source>All</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>Frame &amp;width:</source>
        <translation>フレームの幅(&amp;W):</translation>
    </message>
</context>
<context>
    <name>MoreOptions</name>
    <message>
        <source>&amp;Remember what was shown</source>
        <translation>表示したものを記憶する(&amp;R)</translation>
    </message>
    <message>
        <source>In random order no movie comes twice before all were seen.</source>
        <translation>ランダム順で、すべて見るまで同じムービーは再生しません。</translation>
    </message>
    <message>
        <source>C&amp;hange movies:</source>
        <translation>ムービーの切り替え(&amp;H):</translation>
    </message>
    <message>
        <source>A longer movie gives way to the next one then.</source>
        <translation>それより長いムービーは次のムービーに替わります。</translation>
    </message>
    <message>
        <source>At their end</source>
        <translation>終わったとき</translation>
    </message>
    <message>
        <source>Begin any&amp;where in a movie</source>
        <translation>ムービーの途中から始める(&amp;W)</translation>
    </message>
    <message>
        <source>And not at its beginning, so that long ones are seen whole in time.</source>
        <translation>冒頭からではないので、長いムービーもいずれ全部見られます。</translation>
    </message>
    <message>
        <source>&amp;Dissolve:</source>
        <translation>ディゾルブ(&amp;D):</translation>
    </message>
    <message>
        <source>One movie becomes the next one so slowly.</source>
        <translation>この時間をかけて次のムービーに移ります。</translation>
    </message>
    <message>
        <source>&amp;Keep movies of sites:</source>
        <translation>サイトのムービーを保存(&amp;K):</translation>
    </message>
    <message>
        <source>They play from the disk the next time; the newest are fetched ahead.</source>
        <translation>次回はディスクから再生し、最新のものは先に取得します。</translation>
    </message>
    <message>
        <source>L&amp;atitude:</source>
        <translation>緯度(&amp;A):</translation>
    </message>
    <message>
        <source>In degrees, less than nought in the south. Tells when it is day, for what plays by day.</source>
        <translation>度数、南は負の数。昼に再生するもののために、昼の時間がわかります。</translation>
    </message>
    <message>
        <source>L&amp;ongitude:</source>
        <translation>経度(&amp;O):</translation>
    </message>
    <message>
        <source>In degrees, less than nought in the west. Without both day is from 7 to 19.</source>
        <translation>度数、西は負の数。両方がないと、昼は7時から19時です。</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>ムービー</translation>
    </message>
    <message>
        <source>On the Picture</source>
        <translation>画面の上</translation>
    </message>
    <message>
        <source>Show the &amp;title</source>
        <translation>タイトルを表示(&amp;T)</translation>
    </message>
    <message>
        <source>In a corner that changes, with the folder or the site it is from.</source>
        <translation>隅を移りながら、フォルダやサイトとともに。</translation>
    </message>
    <message>
        <source>Show the ti&amp;me</source>
        <translation>時刻を表示(&amp;M)</translation>
    </message>
    <message>
        <source>As the clock of this desktop has it.</source>
        <translation>このデスクトップの時計の形式で。</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Ke&amp;ys for the movie</source>
        <translation>ムービーのキー操作(&amp;Y)</translation>
    </message>
    <message>
        <source>Arrows change movie and volume, i shows the title, d never plays a movie again, u takes that back.</source>
        <translation>矢印はムービーと音量、i はタイトル、d はそのムービーを二度と再生しない、u はその取り消し。</translation>
    </message>
    <message>
        <source>&amp;Programs may control it</source>
        <translation>プログラムからの操作を許可(&amp;P)</translation>
    </message>
    <message>
        <source>The desktop&apos;s media controls, and &quot;kestro next&quot; and its like.</source>
        <translation>デスクトップのメディア操作や「kestro next」など。</translation>
    </message>
    <message>
        <source>Where You Are</source>
        <translation>現在地</translation>
    </message>
    <message>
        <source>not known</source>
        <comment>degrees of latitude or longitude</comment>
        <translation>不明</translation>
    </message>
    <message>
        <source>%1 s</source>
        <comment>seconds</comment>
        <translation>%1 秒</translation>
    </message>
    <message>
        <source>%1 min</source>
        <comment>minutes</comment>
        <translation>%1 分</translation>
    </message>
    <message>
        <source>None</source>
        <comment>no dissolve</comment>
        <translation>なし</translation>
    </message>
    <message>
        <source>None</source>
        <comment>no movie is kept</comment>
        <translation>なし</translation>
    </message>
</context>
<context>
    <name>MovieFault</name>
    <message>
        <source>no such file</source>
        <translation>ファイルがありません</translation>
    </message>
    <message>
        <source>not a file</source>
        <translation>ファイルではありません</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>読み取れません</translation>
    </message>
    <message>
        <source>empty file</source>
        <translation>空のファイルです</translation>
    </message>
    <message>
        <source>not a kind of file that holds movies</source>
        <translation>ムービーが入る種類のファイルではありません</translation>
    </message>
    <message>
        <source>no moving picture in it</source>
        <translation>動画が入っていません</translation>
    </message>
    <message>
        <source>no decoder for %1</source>
        <translation>%1 のデコーダがありません</translation>
    </message>
    <message>
        <source>too large: %1</source>
        <translation>大きすぎます: %1</translation>
    </message>
    <message>
        <source>damaged, or no movie</source>
        <translation>壊れているか、ムービーではありません</translation>
    </message>
    <message>
        <source>no answer in time</source>
        <translation>時間内に応答がありません</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>サーバに接続できません</translation>
    </message>
    <message>
        <source>the server does not have it</source>
        <translation>サーバにありません</translation>
    </message>
    <message>
        <source>the server refuses it</source>
        <translation>サーバに拒否されました</translation>
    </message>
    <message>
        <source>movies are played from files, http and https only</source>
        <translation>ムービーはファイル、http、httpsからのみ再生できます</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>メモリが足りません</translation>
    </message>
</context>
<context>
    <name>SSConfig</name>
    <message>
        <source>Screen Saver Options</source>
        <translation>スクリーンセーバのオプション</translation>
    </message>
    <message>
        <source>&amp;Playlist</source>
        <translation>再生リスト(&amp;P)</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>再生リスト</translation>
    </message>
    <message>
        <source>The movies that play, from the first to the last</source>
        <translation>最初から順に再生されるムービー</translation>
    </message>
    <message>
        <source>Add &amp;Movie…</source>
        <translation>ムービーを追加(&amp;M)…</translation>
    </message>
    <message>
        <source>Adds movie files</source>
        <translation>ムービーファイルを追加します</translation>
    </message>
    <message>
        <source>Add &amp;URL…</source>
        <translation>URLを追加(&amp;U)…</translation>
    </message>
    <message>
        <source>Adds a movie on a server, by its address</source>
        <translation>サーバ上のムービーをアドレスで追加します</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>削除(&amp;D)</translation>
    </message>
    <message>
        <source>Takes the selected movies out of the playlist</source>
        <translation>選択したムービーを再生リストから取り除きます</translation>
    </message>
    <message>
        <source>&amp;Trailers…</source>
        <translation>予告編(&amp;T)…</translation>
    </message>
    <message>
        <source>Browses the trailers that were found, and adds them</source>
        <translation>見つかった予告編を表示して追加します</translation>
    </message>
    <message>
        <source>Th&amp;eme Movies…</source>
        <translation>テーマムービー(&amp;E)…</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Play &amp;sound</source>
        <translation>サウンドを再生(&amp;S)</translation>
    </message>
    <message>
        <source>The first monitor plays the sound of its movies</source>
        <translation>1台目のモニタがムービーのサウンドを再生します</translation>
    </message>
    <message>
        <source>Play in &amp;random order</source>
        <translation>ランダムな順に再生(&amp;R)</translation>
    </message>
    <message>
        <source>Each movie plays once before any plays again</source>
        <translation>どのムービーも、すべてが一度再生されるまで繰り返されません</translation>
    </message>
    <message>
        <source>Continue where the &amp;last run stopped</source>
        <translation>前回停止したところから再開(&amp;L)</translation>
    </message>
    <message>
        <source>Starts with the movie, and at the place, where it was stopped</source>
        <translation>停止したムービーの、停止した位置から始めます</translation>
    </message>
    <message>
        <source>Play &amp;back and forth</source>
        <translation>往復再生(&amp;B)</translation>
    </message>
    <message>
        <source>Plays a playlist of one movie forwards, then backwards</source>
        <translation>ムービーが1つの再生リストを順方向、逆方向に再生します</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <source>&amp;Full screen</source>
        <translation>フルスクリーン(&amp;F)</translation>
    </message>
    <message>
        <source>Movies fill the screen; otherwise they move about in a smaller size</source>
        <translation>ムービーを画面いっぱいに表示します。オフのときは小さく表示して動かします</translation>
    </message>
    <message>
        <source>F&amp;it</source>
        <translation>全体を表示(&amp;I)</translation>
    </message>
    <message>
        <source>As large as the whole picture fits on the screen</source>
        <translation>画像全体が画面に収まる最大の大きさ</translation>
    </message>
    <message>
        <source>Stretc&amp;h</source>
        <translation>引き伸ばす(&amp;H)</translation>
    </message>
    <message>
        <source>All over the screen, whatever the shape of the picture</source>
        <translation>画像の縦横比にかかわらず画面全体に表示します</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>拡大(&amp;Z)</translation>
    </message>
    <message>
        <source>Large enough to cover the screen; what lies outside is cut off</source>
        <translation>画面を覆う大きさに拡大し、はみ出た部分は切り取ります</translation>
    </message>
    <message>
        <source>Smaller Than the Screen</source>
        <translation>画面より小さく表示</translation>
    </message>
    <message>
        <source>Movement:</source>
        <translation>動き:</translation>
    </message>
    <message>
        <source>Fl&amp;y</source>
        <translation>飛び回る(&amp;Y)</translation>
    </message>
    <message>
        <source>The movie stands still, and now and then goes to another place</source>
        <translation>ムービーは静止し、ときどき別の場所に移ります</translation>
    </message>
    <message>
        <source>Bou&amp;nce</source>
        <translation>跳ね返る(&amp;N)</translation>
    </message>
    <message>
        <source>The movie drifts about and bounces off the edges of the screen</source>
        <translation>ムービーは漂い、画面の端で跳ね返ります</translation>
    </message>
    <message>
        <source>New place:</source>
        <translation>場所の変更:</translation>
    </message>
    <message>
        <source>E&amp;very</source>
        <translation>一定間隔で(&amp;V)</translation>
    </message>
    <message>
        <source>The movie goes to another place after so many seconds</source>
        <translation>ムービーは指定した秒数の後に別の場所に移ります</translation>
    </message>
    <message>
        <source>Seconds until the movie goes to another place</source>
        <translation>ムービーが別の場所に移るまでの秒数</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>&amp;When the movie ends</source>
        <translation>ムービーの終了時(&amp;W)</translation>
    </message>
    <message>
        <source>The movie goes to another place at its end</source>
        <translation>ムービーは終了時に別の場所に移ります</translation>
    </message>
    <message>
        <source>Sc&amp;ale:</source>
        <translation>倍率(&amp;A):</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>倍率</translation>
    </message>
    <message>
        <source>Size of the movie, 1 for its own</source>
        <translation>ムービーの大きさ(1で元の大きさ)</translation>
    </message>
    <message>
        <source>Size of the movie; 1 is its own</source>
        <translation>ムービーの大きさ。1で元の大きさになります</translation>
    </message>
    <message>
        <source>Scale as a number</source>
        <translation>倍率の数値</translation>
    </message>
    <message>
        <source>Bac&amp;kground:</source>
        <translation>背景(&amp;K):</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>The screen saver that runs behind the movies</source>
        <translation>ムービーの後ろで動くスクリーンセーバ</translation>
    </message>
    <message>
        <source>Leave fadin&amp;g pictures behind</source>
        <translation>消えていく残像を残す(&amp;G)</translation>
    </message>
    <message>
        <source>Where a movie was, its picture stays behind and fades out</source>
        <translation>ムービーがあった場所に画像が残り、次第に消えていきます</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上へ移動</translation>
    </message>
    <message>
        <source>Moves the selected movie up (Alt+Up)</source>
        <translation>選択したムービーを上へ移動します (Alt+↑)</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下へ移動</translation>
    </message>
    <message>
        <source>Moves the selected movie down (Alt+Down)</source>
        <translation>選択したムービーを下へ移動します (Alt+↓)</translation>
    </message>
    <message>
        <source>Browses the background movies that come with Kestro</source>
        <translation>Kestro に付属する背景ムービーを一覧表示します</translation>
    </message>
    <message>
        <source>Add Folder…</source>
        <translation>フォルダーを追加…</translation>
    </message>
    <message>
        <source>Adds a folder: the movies in it, and those that come into it</source>
        <translation>フォルダーを追加します: 中のムービーと、後から入るムービー</translation>
    </message>
</context>
<context>
    <name>ThemePanel</name>
    <message>
        <source>Theme Movies</source>
        <translation>テーマムービー</translation>
    </message>
    <message>
        <source>T&amp;heme movies. Those in red are recommended as backgrounds.</source>
        <translation>テーマムービー(&amp;H)。赤いものは背景としておすすめです。</translation>
    </message>
    <message>
        <source>Theme movies</source>
        <translation>テーマムービー</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>再生(&amp;P)</translation>
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
        <translation>予告編</translation>
    </message>
    <message>
        <source>Site &amp;address:</source>
        <translation>サイトのアドレス(&amp;A):</translation>
    </message>
    <message>
        <source>The page of a trailer site that a scan begins with</source>
        <translation>スキャンを始める予告編サイトのページ</translation>
    </message>
    <message>
        <source>Looks for trailers on the site, or stops looking</source>
        <translation>サイトで予告編を探します。探している間は中止します</translation>
    </message>
    <message>
        <source>Trailers found</source>
        <translation>見つかった予告編</translation>
    </message>
    <message>
        <source>Selected trailers, and all trailers</source>
        <translation>選択中の予告編とすべての予告編の数</translation>
    </message>
    <message>
        <source>Scanning</source>
        <translation>スキャン中</translation>
    </message>
    <message>
        <source>&amp;Find:</source>
        <translation>検索(&amp;F):</translation>
    </message>
    <message>
        <source>Return selects the next trailer whose address contains this text</source>
        <translation>Returnキーで、アドレスにこの文字列を含む次の予告編を選択します</translation>
    </message>
    <message>
        <source>Forgets all trailers and all pages that were read</source>
        <translation>すべての予告編と読み込んだページを消去します</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>リストを消去(&amp;C)</translation>
    </message>
    <message>
        <source>Plays the selected trailer in a window of its own</source>
        <translation>選択した予告編を別のウインドウで再生します</translation>
    </message>
    <message>
        <source>&amp;Preview</source>
        <translation>プレビュー(&amp;P)</translation>
    </message>
    <message>
        <source>Saves the movie file of the selected trailer</source>
        <translation>選択した予告編のムービーファイルを保存します</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>保存(&amp;S)…</translation>
    </message>
    <message>
        <source>Adds an entry to the playlist that stands for the newest trailers</source>
        <translation>最新の予告編を表す項目を再生リストに追加します</translation>
    </message>
    <message>
        <source>Add &amp;Latest…</source>
        <translation>最新の予告編を追加(&amp;L)…</translation>
    </message>
    <message>
        <source>Adds the selected trailers to the playlist</source>
        <translation>選択した予告編を再生リストに追加します</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>追加(&amp;D)</translation>
    </message>
    <message>
        <source>Trailers selected:</source>
        <translation>選択中の予告編:</translation>
    </message>
</context>
<context>
    <name>URLPanel</name>
    <message>
        <source>Add URL</source>
        <translation>URLを追加</translation>
    </message>
    <message>
        <source>&amp;Address of a movie, or of Flash content:</source>
        <translation>ムービーまたはFlashコンテンツのアドレス(&amp;A):</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>アドレス</translation>
    </message>
</context>
<context>
    <name>kestro::ConfigSheet</name>
    <message>
        <source>seconds: all the time</source>
        <translation>秒: 絶え間なく</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
</context>
<context>
    <name>kestro::DoctorWindow</name>
    <message>
        <source>C&amp;opy</source>
        <translation>コピー(&amp;O)</translation>
    </message>
    <message>
        <source>Something Wrong?</source>
        <translation>問題がありますか？</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>調べた結果</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>Looking…</source>
        <translation>調べています…</translation>
    </message>
    <message>
        <source>Cannot start %1: %2</source>
        <translation>%1を起動できません: %2</translation>
    </message>
    <message>
        <source>Nothing could be found out.</source>
        <translation>何も分かりませんでした。</translation>
    </message>
</context>
<context>
    <name>kestro::HoursPanel</name>
    <message>
        <source>Play Between</source>
        <translation>再生する時間帯</translation>
    </message>
    <message>
        <source>&amp;From:</source>
        <translation>開始(&amp;F):</translation>
    </message>
    <message>
        <source>&amp;Until:</source>
        <translation>終了(&amp;U):</translation>
    </message>
</context>
<context>
    <name>kestro::IdlePanel</name>
    <message>
        <source>&amp;Start by itself when away for</source>
        <translation>離席後に自動で開始(&amp;S):</translation>
    </message>
    <message>
        <source> min</source>
        <comment>minutes, after their number</comment>
        <translation> 分</translation>
    </message>
    <message>
        <source>Minutes until the saver starts</source>
        <translation>スクリーンセーバーが始まるまでの分数</translation>
    </message>
    <message>
        <source>Nothing starts the saver by itself now.</source>
        <translation>現在、スクリーンセーバーは自動では始まりません。</translation>
    </message>
    <message>
        <source>never</source>
        <comment>black after so many minutes, or never</comment>
        <translation>しない</translation>
    </message>
    <message>
        <source>Minutes until the saver is black</source>
        <translation>スクリーンセーバーが黒くなるまでの分数</translation>
    </message>
    <message>
        <source>From then on nothing plays, and the displays can sleep</source>
        <translation>それ以降は何も再生されず、ディスプレイは休止できます</translation>
    </message>
    <message>
        <source>&amp;black after</source>
        <comment>so many minutes, or never</comment>
        <translation>黒くするまで(&amp;B)</translation>
    </message>
</context>
<context>
    <name>kestro::IdleWords</name>
    <message>
        <source>Now: %1 looks after this session.</source>
        <translation>現在: %1 がこのセッションを担当しています。</translation>
    </message>
    <message>
        <source>Now: the saver is shown.</source>
        <translation>現在: スクリーンセーバーを表示中です。</translation>
    </message>
    <message>
        <source>Now kept from starting: %1.</source>
        <translation>現在は開始しません: %1。</translation>
    </message>
    <message>
        <source>The saver ended unexpectedly the last time.</source>
        <translation>前回、スクリーンセーバーは予期せず終了しました。</translation>
    </message>
    <message>
        <source>Now: waiting until you are away.</source>
        <translation>現在: 離席を待っています。</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>what keeps the saver from starting, and who</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>a program asks for it</source>
        <translation>プログラムが求めています</translation>
    </message>
    <message>
        <source>the session is locked</source>
        <translation>セッションがロックされています</translation>
    </message>
    <message>
        <source>the machine goes to sleep</source>
        <translation>コンピューターがスリープに入ります</translation>
    </message>
    <message>
        <source>the lid is closed</source>
        <translation>ふたが閉じています</translation>
    </message>
    <message>
        <source>power is to be saved</source>
        <translation>電力を節約します</translation>
    </message>
    <message>
        <source>the microphone is in use</source>
        <translation>マイクを使用中です</translation>
    </message>
    <message>
        <source>the camera is in use</source>
        <translation>カメラを使用中です</translation>
    </message>
    <message>
        <source>a game pad is in use</source>
        <translation>ゲームパッドを使用中です</translation>
    </message>
    <message>
        <source>a full-screen window plays sound</source>
        <translation>全画面ウィンドウが音を再生中です</translation>
    </message>
</context>
<context>
    <name>kestro::MoreWindow</name>
    <message>
        <source>More</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
</context>
<context>
    <name>kestro::PanelWindow</name>
    <message>
        <source>Sort by &amp;URL</source>
        <translation>URL順に並べ替え(&amp;U)</translation>
    </message>
    <message>
        <source>Sort by D&amp;ate</source>
        <translation>日付順に並べ替え(&amp;A)</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>スキャン</translation>
    </message>
    <message>
        <source>Cl&amp;ose</source>
        <translation>閉じる(&amp;O)</translation>
    </message>
</context>
<context>
    <name>kestro::PlayButton</name>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistMenu</name>
    <message>
        <source>&amp;Open Folder</source>
        <translation>フォルダを開く(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Look Again</source>
        <translation>もう一度調べる(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Star</source>
        <translation>星(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Plays</source>
        <translation>再生する時間(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Always</source>
        <translation>常に(&amp;A)</translation>
    </message>
    <message>
        <source>By &amp;Day</source>
        <translation>昼間(&amp;D)</translation>
    </message>
    <message>
        <source>At &amp;Night</source>
        <translation>夜間(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Between…</source>
        <translation>時間帯を指定(&amp;B)…</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistPane</name>
    <message>
        <source>Add movies with the buttons below, or drop files and folders here.</source>
        <translation>下のボタンでムービーを追加するか、ファイルやフォルダをここにドロップしてください。</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistTable</name>
    <message>
        <source>Movie</source>
        <translation>ムービー</translation>
    </message>
</context>
<context>
    <name>kestro::PreferencesWindow</name>
    <message>
        <source>&amp;Options…</source>
        <translation>オプション(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Try It</source>
        <translation>試す(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>Kestro Settings</source>
        <translation>Kestroの設定</translation>
    </message>
    <message>
        <source>The screen saver cannot be loaded.</source>
        <translation>スクリーンセーバを読み込めません。</translation>
    </message>
    <message>
        <source>Something &amp;Wrong?</source>
        <translation>問題がありますか(&amp;W)？</translation>
    </message>
    <message>
        <source>&amp;More…</source>
        <translation>その他(&amp;M)…</translation>
    </message>
</context>
<context>
    <name>kestro::PreviewWindow</name>
    <message>
        <source>Movie Trailer</source>
        <translation>映画の予告編</translation>
    </message>
</context>
<context>
    <name>kestro::RQTableViewRowMove</name>
    <message>
        <source>Rows are moved by dragging with Alt held, or with Alt+Up and Alt+Down.</source>
        <translation>行は Alt を押しながらドラッグするか、Alt+↑ と Alt+↓ で移動します。</translation>
    </message>
    <message>
        <source>Rows are moved by dragging, or with Alt+Up and Alt+Down.</source>
        <translation>行はドラッグするか、Alt+↑ と Alt+↓ で移動します。</translation>
    </message>
</context>
<context>
    <name>kestro::SaveTrailer</name>
    <message>
        <source>%1 already exists.
Replace it?</source>
        <translation>%1はすでにあります。
置き換えますか?</translation>
    </message>
    <message>
        <source>Save Trailer</source>
        <translation>予告編を保存</translation>
    </message>
</context>
<context>
    <name>kestro::SaverPreview</name>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
</context>
<context>
    <name>kestro::SaverRun</name>
    <message>
        <source>The saver ended unexpectedly.</source>
        <translation>スクリーンセーバが予期せず終了しました。</translation>
    </message>
    <message>
        <source>Cannot start %1: %2</source>
        <translation>%1を起動できません: %2</translation>
    </message>
    <message>
        <source>The saver could not run.</source>
        <translation>スクリーンセーバを実行できませんでした。</translation>
    </message>
</context>
<context>
    <name>kestro::ScanEndText</name>
    <message>
        <source>Scan finished. Pages read: %1</source>
        <translation>スキャンが終わりました。読み込んだページ: %1</translation>
    </message>
    <message>
        <source>Scan stopped. Pages read: %1</source>
        <translation>スキャンを中止しました。読み込んだページ: %1</translation>
    </message>
    <message>
        <source>Scan ended: the site has more than fits. Pages read: %1</source>
        <translation>スキャンが終わりました。サイトが大きすぎるため、すべては読み込めません。読み込んだページ: %1</translation>
    </message>
    <message>
        <source>The page at this address cannot be read.</source>
        <translation>このアドレスのページを読み込めません。</translation>
    </message>
    <message>
        <source>This is not the address of a page.</source>
        <translation>これはページのアドレスではありません。</translation>
    </message>
    <message>
        <source>The site is being scanned already.</source>
        <translation>このサイトはすでにスキャン中です。</translation>
    </message>
    <message>
        <source>The site&apos;s host is set to %1, but this page is on %2: no link is followed.</source>
        <translation>サイトのホストは%1に設定されていますが、このページは%2にあります。リンクはたどられません。</translation>
    </message>
    <message>
        <source>A second scan at the same time cannot be kept away: %1</source>
        <translation>同時に行われる別のスキャンを防げません: %1</translation>
    </message>
    <message>
        <source>Pages refused: %1. A start page without &lt;html&gt; has pages read as ASCII, and these hold other letters.</source>
        <translation>拒否されたページ: %1。開始ページに&lt;html&gt;がないとページはASCIIとして読み込まれますが、これらのページにはそれ以外の文字が含まれています。</translation>
    </message>
    <message>
        <source>The pages that this address leads to were all read before; Clear List forgets them, and a scan reads them again.</source>
        <translation>このアドレスのリンク先のページはすべて読み込み済みです。「リストを消去」でその記録を消すと、スキャンでもう一度読み込みます。</translation>
    </message>
</context>
<context>
    <name>kestro::ScreensPanel</name>
    <message>
        <source>A movie on each</source>
        <translation>それぞれに別のムービー</translation>
    </message>
    <message>
        <source>The same movie on all</source>
        <translation>すべてに同じムービー</translation>
    </message>
    <message>
        <source>One movie across all</source>
        <translation>全体で一つのムービー</translation>
    </message>
    <message>
        <source>Monitors that show the saver</source>
        <translation>スクリーンセーバーを表示するモニタ</translation>
    </message>
    <message>
        <source>The others are black meanwhile</source>
        <translation>ほかのモニタはその間黒くなります</translation>
    </message>
    <message>
        <source>Scree&amp;ns:</source>
        <comment>how they share the saver</comment>
        <translation>画面(&amp;N):</translation>
    </message>
    <message>
        <source>All monitors</source>
        <translation>すべてのモニタ</translation>
    </message>
    <message>
        <source>The first monitor alone</source>
        <translation>最初のモニタのみ</translation>
    </message>
    <message>
        <source>%1 alone</source>
        <translation>%1 のみ</translation>
    </message>
</context>
<context>
    <name>kestro::ScrubBar</name>
    <message>
        <source>Position</source>
        <translation>再生位置</translation>
    </message>
</context>
<context>
    <name>kestro::StarterPane</name>
    <message>
        <source>Begin with one of these:</source>
        <translation>まずはこちらから:</translation>
    </message>
    <message>
        <source>Your videos</source>
        <translation>あなたのビデオ</translation>
    </message>
    <message>
        <source>Add Your Videos</source>
        <translation>あなたのビデオを追加</translation>
    </message>
    <message>
        <source>Theme movies</source>
        <translation>テーマムービー</translation>
    </message>
    <message>
        <source>Add the Theme Movies</source>
        <translation>テーマムービーを追加</translation>
    </message>
    <message>
        <source>Intro</source>
        <translation>イントロ</translation>
    </message>
    <message>
        <source>Add the Intro</source>
        <translation>イントロを追加</translation>
    </message>
    <message>
        <source>The movie that introduces Kestro</source>
        <translation>Kestro を紹介するムービー</translation>
    </message>
    <message>
        <source>Backgrounds that come with Kestro: %1</source>
        <translation>Kestro に付属する背景: %1</translation>
    </message>
    <message>
        <source>Movies found: %1</source>
        <translation>見つかったムービー: %1</translation>
    </message>
</context>
<context>
    <name>kestro::StarterRow</name>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
</context>
<context>
    <name>kestro::ThemePanel</name>
    <message>
        <source>Preview of the selected movie</source>
        <translation>選択したムービーのプレビュー</translation>
    </message>
    <message>
        <source>No theme movies were found.</source>
        <translation>テーマムービーが見つかりませんでした。</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>追加(&amp;A)</translation>
    </message>
</context>
<context>
    <name>kestro::ThemeTableModel</name>
    <message>
        <source>Recommended</source>
        <translation>おすすめ</translation>
    </message>
    <message>
        <source>Not recommended</source>
        <translation>おすすめではありません</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>テーマ</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>ムービー</translation>
    </message>
</context>
<context>
    <name>kestro::TrailerDownload</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Saving %1…</source>
        <translation>%1を保存しています…</translation>
    </message>
    <message>
        <source>Save Trailer</source>
        <translation>予告編を保存</translation>
    </message>
</context>
<context>
    <name>kestro::TrailerTableModel</name>
    <message>
        <source>SEL</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>SIZE</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <source>DATE</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>A mark of your own: it is kept with the trailer, and changes nothing else</source>
        <translation>自分用の目印です。予告編とともに保存され、ほかには影響しません</translation>
    </message>
    <message>
        <source>Ticked</source>
        <translation>チェックあり</translation>
    </message>
    <message>
        <source>Not ticked</source>
        <translation>チェックなし</translation>
    </message>
</context>
<context>
    <name>kestro::XscreensaverPanel</name>
    <message>
        <source>Kestro is in your list of XScreenSaver&apos;s savers.</source>
        <translation>KestroはXScreenSaverのスクリーンセーバの一覧にあります。</translation>
    </message>
    <message>
        <source>Kestro is not in your list of XScreenSaver&apos;s savers.</source>
        <translation>KestroはXScreenSaverのスクリーンセーバの一覧にありません。</translation>
    </message>
    <message>
        <source>&amp;Remove from XScreenSaver</source>
        <translation>XScreenSaverから削除(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Add to XScreenSaver</source>
        <translation>XScreenSaverに追加(&amp;A)</translation>
    </message>
    <message>
        <source>XScreenSaver is not installed. The command &quot;kestro&quot; runs the saver at any time.</source>
        <translation>XScreenSaver はインストールされていません。コマンド &quot;kestro&quot; でいつでも実行できます。</translation>
    </message>
</context>
</TS>
