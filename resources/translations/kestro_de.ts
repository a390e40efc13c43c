<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en_US">
<context>
    <name>EntryText</name>
    <message>
        <source>Newest trailers</source>
        <translation>Neueste Trailer</translation>
    </message>
    <message>
        <source>Left out: it does not say how many trailers of which width</source>
        <translation>Wird ausgelassen: Es steht nicht darin, wie viele Trailer welcher Breite gemeint sind</translation>
    </message>
    <message>
        <source>Left out: a web page, no movie</source>
        <translation>Wird ausgelassen: eine Webseite, kein Film</translation>
    </message>
    <message>
        <source>Cannot be opened: %1</source>
        <translation>Kann nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>Web content, %1</source>
        <translation>Webinhalt, %1</translation>
    </message>
    <message>
        <source>%1: cannot be opened, %2</source>
        <translation>%1: kann nicht geöffnet werden, %2</translation>
    </message>
    <message>
        <source>A click on the sign looks again.</source>
        <translation>Ein Klick auf das Zeichen sieht noch einmal nach.</translation>
    </message>
    <message>
        <source>The newest trailer, %1 pixels wide</source>
        <translation>Der neueste Trailer, %1 Pixel breit</translation>
    </message>
    <message>
        <source>%1 newest trailers, each %2 pixels wide</source>
        <translation>Die %1 neuesten Trailer, je %2 Pixel breit</translation>
    </message>
    <message>
        <source>All trailers, each %1 pixels wide</source>
        <translation>Alle Trailer, je %1 Pixel breit</translation>
    </message>
    <message>
        <source>Left out: it names no folder of this machine</source>
        <translation>Ausgelassen: Das nennt keinen Ordner dieses Rechners</translation>
    </message>
    <message>
        <source>Folder, %1</source>
        <translation>Ordner, %1</translation>
    </message>
    <message>
        <source>Folder without movies, %1</source>
        <translation>Ordner ohne Filme, %1</translation>
    </message>
    <message>
        <source>Folder with one movie, %1</source>
        <translation>Ordner mit einem Film, %1</translation>
    </message>
    <message>
        <source>Folder with %L1 movies, %2</source>
        <translation>Ordner mit %L1 Filmen, %2</translation>
    </message>
    <message>
        <source>List, %1</source>
        <translation>Liste, %1</translation>
    </message>
    <message>
        <source>List without movies, %1</source>
        <translation>Liste ohne Filme, %1</translation>
    </message>
    <message>
        <source>List with one movie, %1</source>
        <translation>Liste mit einem Film, %1</translation>
    </message>
    <message>
        <source>List with %L1 movies, %2</source>
        <translation>Liste mit %L1 Filmen, %2</translation>
    </message>
    <message>
        <source>Starred</source>
        <translation>Mit Stern</translation>
    </message>
    <message>
        <source>Plays by day</source>
        <translation>Spielt tagsüber</translation>
    </message>
    <message>
        <source>Plays at night</source>
        <translation>Spielt nachts</translation>
    </message>
    <message>
        <source>Plays from %1 until %2</source>
        <translation>Spielt von %1 bis %2</translation>
    </message>
</context>
<context>
    <name>Kestro</name>
    <message>
        <source>You selected &apos;.slideSaver&apos;. 
You may need to restart &apos;System Preferences.app&apos; to take effect properly.</source>
        <translation>Sie haben einen „.slideSaver“ ausgewählt. 
Eventuell müssen Sie „System Preferences.app“ neu starten, damit dies richtig wirksam wird.</translation>
    </message>
    <message>
        <source>Invalid URL string.</source>
        <translation>Ungültige URL.</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Failed to create movie.
Please try again.</source>
        <translation>Der Film konnte nicht geöffnet werden.
Bitte versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Add Movie</source>
        <translation>Film hinzufügen</translation>
    </message>
    <message>
        <source>No movie selected</source>
        <translation>Kein Film ausgewählt</translation>
    </message>
    <message>
        <source>Add movies in the settings</source>
        <translation>Filme in den Einstellungen hinzufügen</translation>
    </message>
    <message>
        <source>No movie could be loaded</source>
        <translation>Kein Film konnte geladen werden</translation>
    </message>
    <message>
        <source>Check the playlist and the network</source>
        <translation>Bitte Wiedergabeliste und Netzwerk prüfen</translation>
    </message>
    <message>
        <source>The settings file could not be read. It was kept as %1.</source>
        <translation>Die Datei mit den Einstellungen war nicht lesbar. Sie wurde als %1 aufbewahrt.</translation>
    </message>
    <message>
        <source>The settings could not be saved in %1. They are lost when this window closes.</source>
        <translation>Die Einstellungen konnten nicht in %1 gesichert werden. Sie gehen verloren, wenn dieses Fenster geschlossen wird.</translation>
    </message>
    <message>
        <source>Failed to save the movie as %1.
%2</source>
        <translation>Der Film konnte nicht als %1 gespeichert werden.
%2</translation>
    </message>
    <message>
        <source>The folder %1 cannot be shown.</source>
        <translation>Der Ordner %1 kann nicht angezeigt werden.</translation>
    </message>
    <message>
        <source>There are no movies in what was dropped.</source>
        <translation>Unter dem, was abgelegt wurde, ist kein Film.</translation>
    </message>
    <message>
        <source>Looking for movies in what was dropped…</source>
        <translation>In dem, was abgelegt wurde, werden Filme gesucht…</translation>
    </message>
    <message>
        <source>The disk does not answer. Movies may be missing from what was dropped.</source>
        <translation>Der Datenträger antwortet nicht. Von dem, was abgelegt wurde, können Filme fehlen.</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Sound is off</source>
        <translation>Der Ton ist aus</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>Lautstärke: %1 %</translation>
    </message>
    <message>
        <source>There is no other movie</source>
        <translation>Es gibt keinen anderen Film</translation>
    </message>
    <message>
        <source>Not played any more (U takes that back)</source>
        <translation>Wird nicht mehr gespielt (U nimmt das zurück)</translation>
    </message>
    <message>
        <source>Nothing to take back</source>
        <translation>Nichts zurückzunehmen</translation>
    </message>
    <message>
        <source>Played again from now on</source>
        <translation>Wird ab jetzt wieder gespielt</translation>
    </message>
</context>
<context>
    <name>LatestPanel</name>
    <message>
        <source>Latest Trailers</source>
        <translation>Neueste Trailer</translation>
    </message>
    <message>
        <source>Adds an entry that always plays the newest trailers found.</source>
        <translation>Fügt einen Eintrag hinzu, der stets die neuesten gefundenen Trailer abspielt.</translation>
    </message>
    <message>
        <source>&amp;Number of trailers:</source>
        <translation>&amp;Anzahl der Trailer:</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Frame &amp;width:</source>
        <translation>&amp;Bildbreite:</translation>
    </message>
</context>
<context>
    <name>MoreOptions</name>
    <message>
        <source>&amp;Remember what was shown</source>
        <translation>&amp;Merken, was gezeigt wurde</translation>
    </message>
    <message>
        <source>In random order no movie comes twice before all were seen.</source>
        <translation>In zufälliger Reihenfolge kommt kein Film zweimal, bevor alle zu sehen waren.</translation>
    </message>
    <message>
        <source>C&amp;hange movies:</source>
        <translation>Filme &amp;wechseln:</translation>
    </message>
    <message>
        <source>A longer movie gives way to the next one then.</source>
        <translation>Ein längerer Film macht dann dem nächsten Platz.</translation>
    </message>
    <message>
        <source>At their end</source>
        <translation>Am Ende</translation>
    </message>
    <message>
        <source>Begin any&amp;where in a movie</source>
        <translation>Irgendw&amp;o im Film beginnen</translation>
    </message>
    <message>
        <source>And not at its beginning, so that long ones are seen whole in time.</source>
        <translation>Und nicht am Anfang: So sind lange Filme mit der Zeit ganz zu sehen.</translation>
    </message>
    <message>
        <source>&amp;Dissolve:</source>
        <translation>Ü&amp;berblenden:</translation>
    </message>
    <message>
        <source>One movie becomes the next one so slowly.</source>
        <translation>So langsam geht ein Film in den nächsten über.</translation>
    </message>
    <message>
        <source>&amp;Keep movies of sites:</source>
        <translation>Filme von Seiten be&amp;halten:</translation>
    </message>
    <message>
        <source>They play from the disk the next time; the newest are fetched ahead.</source>
        <translation>Sie laufen das nächste Mal von der Platte; die neuesten werden vorab geholt.</translation>
    </message>
    <message>
        <source>L&amp;atitude:</source>
        <translation>B&amp;reite:</translation>
    </message>
    <message>
        <source>In degrees, less than nought in the south. Tells when it is day, for what plays by day.</source>
        <translation>In Grad, im Süden kleiner als null. Sagt, wann Tag ist, für das, was am Tag läuft.</translation>
    </message>
    <message>
        <source>L&amp;ongitude:</source>
        <translation>&amp;Länge:</translation>
    </message>
    <message>
        <source>In degrees, less than nought in the west. Without both day is from 7 to 19.</source>
        <translation>In Grad, im Westen kleiner als null. Ohne beide ist Tag von 7 bis 19 Uhr.</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Filme</translation>
    </message>
    <message>
        <source>On the Picture</source>
        <translation>Auf dem Bild</translation>
    </message>
    <message>
        <source>Show the &amp;title</source>
        <translation>&amp;Titel zeigen</translation>
    </message>
    <message>
        <source>In a corner that changes, with the folder or the site it is from.</source>
        <translation>In wechselnden Ecken, mit dem Ordner oder der Seite, woher er ist.</translation>
    </message>
    <message>
        <source>Show the ti&amp;me</source>
        <translation>&amp;Uhrzeit zeigen</translation>
    </message>
    <message>
        <source>As the clock of this desktop has it.</source>
        <translation>So, wie die Uhr dieser Arbeitsfläche sie zeigt.</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Bedienung</translation>
    </message>
    <message>
        <source>Ke&amp;ys for the movie</source>
        <translation>Tasten für den &amp;Film</translation>
    </message>
    <message>
        <source>Arrows change movie and volume, i shows the title, d never plays a movie again, u takes that back.</source>
        <translation>Pfeile wechseln Film und Lautstärke, i zeigt den Titel, d spielt einen Film nie wieder, u nimmt das zurück.</translation>
    </message>
    <message>
        <source>&amp;Programs may control it</source>
        <translation>&amp;Programme dürfen ihn bedienen</translation>
    </message>
    <message>
        <source>The desktop&apos;s media controls, and &quot;kestro next&quot; and its like.</source>
        <translation>Die Mediensteuerung der Arbeitsfläche, „kestro next“ und seinesgleichen.</translation>
    </message>
    <message>
        <source>Where You Are</source>
        <translation>Ihr Ort</translation>
    </message>
    <message>
        <source>not known</source>
        <comment>degrees of latitude or longitude</comment>
        <translation>nicht bekannt</translation>
    </message>
    <message>
        <source>%1 s</source>
        <comment>seconds</comment>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <comment>minutes</comment>
        <translation>%1 Min.</translation>
    </message>
    <message>
        <source>None</source>
        <comment>no dissolve</comment>
        <translation>Nicht</translation>
    </message>
    <message>
        <source>None</source>
        <comment>no movie is kept</comment>
        <translation>Keine</translation>
    </message>
</context>
<context>
    <name>MovieFault</name>
    <message>
        <source>no such file</source>
        <translation>Datei nicht vorhanden</translation>
    </message>
    <message>
        <source>not a file</source>
        <translation>keine Datei</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>empty file</source>
        <translation>leere Datei</translation>
    </message>
    <message>
        <source>not a kind of file that holds movies</source>
        <translation>keine Art von Datei, die Filme enthält</translation>
    </message>
    <message>
        <source>no moving picture in it</source>
        <translation>enthält kein bewegtes Bild</translation>
    </message>
    <message>
        <source>no decoder for %1</source>
        <translation>kein Decoder für %1</translation>
    </message>
    <message>
        <source>too large: %1</source>
        <translation>zu groß: %1</translation>
    </message>
    <message>
        <source>damaged, or no movie</source>
        <translation>beschädigt oder kein Film</translation>
    </message>
    <message>
        <source>no answer in time</source>
        <translation>keine Antwort in angemessener Zeit</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>der Server ist nicht erreichbar</translation>
    </message>
    <message>
        <source>the server does not have it</source>
        <translation>auf dem Server nicht vorhanden</translation>
    </message>
    <message>
        <source>the server refuses it</source>
        <translation>der Server gibt ihn nicht heraus</translation>
    </message>
    <message>
        <source>movies are played from files, http and https only</source>
        <translation>Filme werden nur aus Dateien, über http und über https abgespielt</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>nicht genug Speicher</translation>
    </message>
</context>
<context>
    <name>SSConfig</name>
    <message>
        <source>Screen Saver Options</source>
        <translation>Bildschirmschoner-Optionen</translation>
    </message>
    <message>
        <source>&amp;Playlist</source>
        <translation>&amp;Wiedergabeliste</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Wiedergabeliste</translation>
    </message>
    <message>
        <source>The movies that play, from the first to the last</source>
        <translation>Die Filme, die abgespielt werden, vom ersten bis zum letzten</translation>
    </message>
    <message>
        <source>Add &amp;Movie…</source>
        <translation>&amp;Film hinzufügen…</translation>
    </message>
    <message>
        <source>Adds movie files</source>
        <translation>Fügt Filmdateien hinzu</translation>
    </message>
    <message>
        <source>Add &amp;URL…</source>
        <translation>&amp;URL hinzufügen…</translation>
    </message>
    <message>
        <source>Adds a movie on a server, by its address</source>
        <translation>Fügt einen Film auf einem Server über seine Adresse hinzu</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Takes the selected movies out of the playlist</source>
        <translation>Nimmt die ausgewählten Filme aus der Wiedergabeliste</translation>
    </message>
    <message>
        <source>&amp;Trailers…</source>
        <translation>&amp;Trailer…</translation>
    </message>
    <message>
        <source>Browses the trailers that were found, and adds them</source>
        <translation>Zeigt die gefundenen Trailer und fügt sie hinzu</translation>
    </message>
    <message>
        <source>Th&amp;eme Movies…</source>
        <translation>Th&amp;emenfilme…</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Play &amp;sound</source>
        <translation>To&amp;n wiedergeben</translation>
    </message>
    <message>
        <source>The first monitor plays the sound of its movies</source>
        <translation>Der erste Monitor gibt den Ton seiner Filme wieder</translation>
    </message>
    <message>
        <source>Play in &amp;random order</source>
        <translation>&amp;Zufällige Reihenfolge</translation>
    </message>
    <message>
        <source>Each movie plays once before any plays again</source>
        <translation>Jeder Film läuft einmal, bevor sich einer wiederholt</translation>
    </message>
    <message>
        <source>Continue where the &amp;last run stopped</source>
        <translation>Fo&amp;rtsetzen, wo zuletzt angehalten wurde</translation>
    </message>
    <message>
        <source>Starts with the movie, and at the place, where it was stopped</source>
        <translation>Beginnt mit dem Film und an der Stelle, wo angehalten wurde</translation>
    </message>
    <message>
        <source>Play &amp;back and forth</source>
        <translation>&amp;Vor und zurück abspielen</translation>
    </message>
    <message>
        <source>Plays a playlist of one movie forwards, then backwards</source>
        <translation>Spielt eine Wiedergabeliste mit nur einem Film vorwärts, dann rückwärts</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>&amp;Full screen</source>
        <translation>V&amp;ollbild</translation>
    </message>
    <message>
        <source>Movies fill the screen; otherwise they move about in a smaller size</source>
        <translation>Filme füllen den Bildschirm; sonst bewegen sie sich verkleinert darüber</translation>
    </message>
    <message>
        <source>F&amp;it</source>
        <translation>E&amp;inpassen</translation>
    </message>
    <message>
        <source>As large as the whole picture fits on the screen</source>
        <translation>So groß, wie das ganze Bild auf den Bildschirm passt</translation>
    </message>
    <message>
        <source>Stretc&amp;h</source>
        <translation>Stre&amp;cken</translation>
    </message>
    <message>
        <source>All over the screen, whatever the shape of the picture</source>
        <translation>Über den ganzen Bildschirm, gleich welche Form das Bild hat</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Large enough to cover the screen; what lies outside is cut off</source>
        <translation>Groß genug, um den Bildschirm zu bedecken; was übersteht, wird abgeschnitten</translation>
    </message>
    <message>
        <source>Smaller Than the Screen</source>
        <translation>Kleiner als der Bildschirm</translation>
    </message>
    <message>
        <source>Movement:</source>
        <translation>Bewegung:</translation>
    </message>
    <message>
        <source>Fl&amp;y</source>
        <translation>&amp;Springen</translation>
    </message>
    <message>
        <source>The movie stands still, and now and then goes to another place</source>
        <translation>Der Film steht still und wechselt hin und wieder den Ort</translation>
    </message>
    <message>
        <source>Bou&amp;nce</source>
        <translation>Ab&amp;prallen</translation>
    </message>
    <message>
        <source>The movie drifts about and bounces off the edges of the screen</source>
        <translation>Der Film treibt umher und prallt von den Bildschirmrändern ab</translation>
    </message>
    <message>
        <source>New place:</source>
        <translation>Neuer Ort:</translation>
    </message>
    <message>
        <source>E&amp;very</source>
        <translation>&amp;Alle</translation>
    </message>
    <message>
        <source>The movie goes to another place after so many seconds</source>
        <translation>Der Film wechselt nach so vielen Sekunden den Ort</translation>
    </message>
    <message>
        <source>Seconds until the movie goes to another place</source>
        <translation>Sekunden, bis der Film den Ort wechselt</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>&amp;When the movie ends</source>
        <translation>Am En&amp;de des Films</translation>
    </message>
    <message>
        <source>The movie goes to another place at its end</source>
        <translation>Der Film wechselt an seinem Ende den Ort</translation>
    </message>
    <message>
        <source>Sc&amp;ale:</source>
        <translation>&amp;Maßstab:</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Maßstab</translation>
    </message>
    <message>
        <source>Size of the movie, 1 for its own</source>
        <translation>Größe des Films, 1 für seine eigene</translation>
    </message>
    <message>
        <source>Size of the movie; 1 is its own</source>
        <translation>Größe des Films; 1 ist seine eigene</translation>
    </message>
    <message>
        <source>Scale as a number</source>
        <translation>Maßstab als Zahl</translation>
    </message>
    <message>
        <source>Bac&amp;kground:</source>
        <translation>&amp;Hintergrund:</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>The screen saver that runs behind the movies</source>
        <translation>Der Bildschirmschoner, der hinter den Filmen läuft</translation>
    </message>
    <message>
        <source>Leave fadin&amp;g pictures behind</source>
        <translation>Ver&amp;blassende Bilder hinterlassen</translation>
    </message>
    <message>
        <source>Where a movie was, its picture stays behind and fades out</source>
        <translation>Wo ein Film war, bleibt sein Bild zurück und verblasst</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Moves the selected movie up (Alt+Up)</source>
        <translation>Verschiebt den ausgewählten Film nach oben (Alt+Auf)</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Moves the selected movie down (Alt+Down)</source>
        <translation>Verschiebt den ausgewählten Film nach unten (Alt+Ab)</translation>
    </message>
    <message>
        <source>Browses the background movies that come with Kestro</source>
        <translation>Zeigt die Hintergrundfilme, die zu Kestro gehören</translation>
    </message>
    <message>
        <source>Add Folder…</source>
        <translation>Ordner hinzufügen…</translation>
    </message>
    <message>
        <source>Adds a folder: the movies in it, and those that come into it</source>
        <translation>Fügt einen Ordner hinzu: die Filme darin und die, die hineinkommen</translation>
    </message>
</context>
<context>
    <name>ThemePanel</name>
    <message>
        <source>Theme Movies</source>
        <translation>Themenfilme</translation>
    </message>
    <message>
        <source>T&amp;heme movies. Those in red are recommended as backgrounds.</source>
        <translation>T&amp;hemenfilme. Rot markierte sind als Hintergrund empfohlen.</translation>
    </message>
    <message>
        <source>Theme movies</source>
        <translation>Themenfilme</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>Ab&amp;spielen</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>A&amp;nhalten</translation>
    </message>
</context>
<context>
    <name>TrailerCont</name>
    <message>
        <source>Trailers</source>
        <translation>Trailer</translation>
    </message>
    <message>
        <source>Site &amp;address:</source>
        <translation>&amp;Adresse der Site:</translation>
    </message>
    <message>
        <source>The page of a trailer site that a scan begins with</source>
        <translation>Die Seite einer Trailer-Site, bei der die Suche beginnt</translation>
    </message>
    <message>
        <source>Looks for trailers on the site, or stops looking</source>
        <translation>Sucht auf der Site nach Trailern oder bricht die Suche ab</translation>
    </message>
    <message>
        <source>Trailers found</source>
        <translation>Gefundene Trailer</translation>
    </message>
    <message>
        <source>Selected trailers, and all trailers</source>
        <translation>Ausgewählte Trailer und alle Trailer</translation>
    </message>
    <message>
        <source>Scanning</source>
        <translation>Site wird durchsucht</translation>
    </message>
    <message>
        <source>&amp;Find:</source>
        <translation>&amp;Suchen:</translation>
    </message>
    <message>
        <source>Return selects the next trailer whose address contains this text</source>
        <translation>Die Eingabetaste wählt den nächsten Trailer, dessen Adresse diesen Text enthält</translation>
    </message>
    <message>
        <source>Forgets all trailers and all pages that were read</source>
        <translation>Vergisst alle Trailer und alle gelesenen Seiten</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>&amp;Liste leeren</translation>
    </message>
    <message>
        <source>Plays the selected trailer in a window of its own</source>
        <translation>Spielt den ausgewählten Trailer in einem eigenen Fenster ab</translation>
    </message>
    <message>
        <source>&amp;Preview</source>
        <translation>&amp;Vorschau</translation>
    </message>
    <message>
        <source>Saves the movie file of the selected trailer</source>
        <translation>Speichert die Filmdatei des ausgewählten Trailers</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>S&amp;peichern…</translation>
    </message>
    <message>
        <source>Adds an entry to the playlist that stands for the newest trailers</source>
        <translation>Fügt der Wiedergabeliste einen Eintrag hinzu, der für die neuesten Trailer steht</translation>
    </message>
    <message>
        <source>Add &amp;Latest…</source>
        <translation>&amp;Neueste hinzufügen…</translation>
    </message>
    <message>
        <source>Adds the selected trailers to the playlist</source>
        <translation>Fügt die ausgewählten Trailer zur Wiedergabeliste hinzu</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>Trailers selected:</source>
        <translation>Ausgewählte Trailer:</translation>
    </message>
</context>
<context>
    <name>URLPanel</name>
    <message>
        <source>Add URL</source>
        <translation>URL hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Address of a movie, or of Flash content:</source>
        <translation>&amp;Adresse eines Films oder von Flash-Inhalt:</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
</context>
<context>
    <name>kestro::ConfigSheet</name>
    <message>
        <source>seconds: all the time</source>
        <translation>Sekunden: ständig</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
</context>
<context>
    <name>kestro::DoctorWindow</name>
    <message>
        <source>C&amp;opy</source>
        <translation>K&amp;opieren</translation>
    </message>
    <message>
        <source>Something Wrong?</source>
        <translation>Stimmt etwas nicht?</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>Was gefunden wurde</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Looking…</source>
        <translation>Es wird nachgesehen …</translation>
    </message>
    <message>
        <source>Cannot start %1: %2</source>
        <translation>%1 kann nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>Nothing could be found out.</source>
        <translation>Es war nichts herauszufinden.</translation>
    </message>
</context>
<context>
    <name>kestro::HoursPanel</name>
    <message>
        <source>Play Between</source>
        <translation>Spielen zwischen</translation>
    </message>
    <message>
        <source>&amp;From:</source>
        <translation>&amp;Von:</translation>
    </message>
    <message>
        <source>&amp;Until:</source>
        <translation>&amp;Bis:</translation>
    </message>
</context>
<context>
    <name>kestro::IdlePanel</name>
    <message>
        <source>&amp;Start by itself when away for</source>
        <translation>Bei Abwesenheit &amp;starten nach</translation>
    </message>
    <message>
        <source> min</source>
        <comment>minutes, after their number</comment>
        <translation> min</translation>
    </message>
    <message>
        <source>Minutes until the saver starts</source>
        <translation>Minuten bis zum Start des Bildschirmschoners</translation>
    </message>
    <message>
        <source>Nothing starts the saver by itself now.</source>
        <translation>Zurzeit startet nichts den Bildschirmschoner von selbst.</translation>
    </message>
    <message>
        <source>never</source>
        <comment>black after so many minutes, or never</comment>
        <translation>nie</translation>
    </message>
    <message>
        <source>Minutes until the saver is black</source>
        <translation>Minuten, bis der Bildschirmschoner schwarz ist</translation>
    </message>
    <message>
        <source>From then on nothing plays, and the displays can sleep</source>
        <translation>Von da an spielt nichts mehr, und die Bildschirme können schlafen</translation>
    </message>
    <message>
        <source>&amp;black after</source>
        <comment>so many minutes, or never</comment>
        <translation>sch&amp;warz nach</translation>
    </message>
</context>
<context>
    <name>kestro::IdleWords</name>
    <message>
        <source>Now: %1 looks after this session.</source>
        <translation>Jetzt: %1 kümmert sich um diese Sitzung.</translation>
    </message>
    <message>
        <source>Now: the saver is shown.</source>
        <translation>Jetzt: Der Bildschirmschoner läuft.</translation>
    </message>
    <message>
        <source>Now kept from starting: %1.</source>
        <translation>Startet jetzt nicht: %1.</translation>
    </message>
    <message>
        <source>The saver ended unexpectedly the last time.</source>
        <translation>Der Bildschirmschoner hat zuletzt unerwartet geendet.</translation>
    </message>
    <message>
        <source>Now: waiting until you are away.</source>
        <translation>Jetzt: Wartet, bis Sie abwesend sind.</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>what keeps the saver from starting, and who</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>a program asks for it</source>
        <translation>ein Programm bittet darum</translation>
    </message>
    <message>
        <source>the session is locked</source>
        <translation>die Sitzung ist gesperrt</translation>
    </message>
    <message>
        <source>the machine goes to sleep</source>
        <translation>der Rechner geht schlafen</translation>
    </message>
    <message>
        <source>the lid is closed</source>
        <translation>der Deckel ist zu</translation>
    </message>
    <message>
        <source>power is to be saved</source>
        <translation>es soll Strom gespart werden</translation>
    </message>
    <message>
        <source>the microphone is in use</source>
        <translation>das Mikrofon wird benutzt</translation>
    </message>
    <message>
        <source>the camera is in use</source>
        <translation>die Kamera wird benutzt</translation>
    </message>
    <message>
        <source>a game pad is in use</source>
        <translation>ein Gamepad wird benutzt</translation>
    </message>
    <message>
        <source>a full-screen window plays sound</source>
        <translation>ein Vollbildfenster gibt Ton aus</translation>
    </message>
</context>
<context>
    <name>kestro::MoreWindow</name>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
</context>
<context>
    <name>kestro::PanelWindow</name>
    <message>
        <source>Sort by &amp;URL</source>
        <translation>Nach &amp;URL sortieren</translation>
    </message>
    <message>
        <source>Sort by D&amp;ate</source>
        <translation>Nach &amp;Datum sortieren</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Durchsuchen</translation>
    </message>
    <message>
        <source>Cl&amp;ose</source>
        <translation>S&amp;chließen</translation>
    </message>
</context>
<context>
    <name>kestro::PlayButton</name>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergabe</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistMenu</name>
    <message>
        <source>&amp;Open Folder</source>
        <translation>&amp;Ordner öffnen</translation>
    </message>
    <message>
        <source>&amp;Look Again</source>
        <translation>Noch einmal an&amp;sehen</translation>
    </message>
    <message>
        <source>&amp;Star</source>
        <translation>Ste&amp;rn</translation>
    </message>
    <message>
        <source>&amp;Plays</source>
        <translation>S&amp;pielt</translation>
    </message>
    <message>
        <source>&amp;Always</source>
        <translation>&amp;Immer</translation>
    </message>
    <message>
        <source>By &amp;Day</source>
        <translation>Am &amp;Tag</translation>
    </message>
    <message>
        <source>At &amp;Night</source>
        <translation>&amp;Nachts</translation>
    </message>
    <message>
        <source>&amp;Between…</source>
        <translation>&amp;Zwischen…</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistPane</name>
    <message>
        <source>Add movies with the buttons below, or drop files and folders here.</source>
        <translation>Fügen Sie mit den Knöpfen unten Filme hinzu, oder legen Sie Dateien und Ordner hier ab.</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistTable</name>
    <message>
        <source>Movie</source>
        <translation>Film</translation>
    </message>
</context>
<context>
    <name>kestro::PreferencesWindow</name>
    <message>
        <source>&amp;Options…</source>
        <translation>&amp;Optionen…</translation>
    </message>
    <message>
        <source>&amp;Try It</source>
        <translation>&amp;Ausprobieren</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Kestro Settings</source>
        <translation>Kestro-Einstellungen</translation>
    </message>
    <message>
        <source>The screen saver cannot be loaded.</source>
        <translation>Der Bildschirmschoner kann nicht geladen werden.</translation>
    </message>
    <message>
        <source>Something &amp;Wrong?</source>
        <translation>Stimmt etwas &amp;nicht?</translation>
    </message>
    <message>
        <source>&amp;More…</source>
        <translation>&amp;Mehr…</translation>
    </message>
</context>
<context>
    <name>kestro::PreviewWindow</name>
    <message>
        <source>Movie Trailer</source>
        <translation>Filmtrailer</translation>
    </message>
</context>
<context>
    <name>kestro::RQTableViewRowMove</name>
    <message>
        <source>Rows are moved by dragging with Alt held, or with Alt+Up and Alt+Down.</source>
        <translation>Zeilen werden mit gedrückter Alt-Taste gezogen oder mit Alt+Auf und Alt+Ab verschoben.</translation>
    </message>
    <message>
        <source>Rows are moved by dragging, or with Alt+Up and Alt+Down.</source>
        <translation>Zeilen werden gezogen oder mit Alt+Auf und Alt+Ab verschoben.</translation>
    </message>
</context>
<context>
    <name>kestro::SaveTrailer</name>
    <message>
        <source>%1 already exists.
Replace it?</source>
        <translation>%1 ist bereits vorhanden.
Ersetzen?</translation>
    </message>
    <message>
        <source>Save Trailer</source>
        <translation>Trailer speichern</translation>
    </message>
</context>
<context>
    <name>kestro::SaverPreview</name>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
</context>
<context>
    <name>kestro::SaverRun</name>
    <message>
        <source>The saver ended unexpectedly.</source>
        <translation>Der Bildschirmschoner wurde unerwartet beendet.</translation>
    </message>
    <message>
        <source>Cannot start %1: %2</source>
        <translation>%1 kann nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>The saver could not run.</source>
        <translation>Der Bildschirmschoner konnte nicht laufen.</translation>
    </message>
</context>
<context>
    <name>kestro::ScanEndText</name>
    <message>
        <source>Scan finished. Pages read: %1</source>
        <translation>Suche beendet. Gelesene Seiten: %1</translation>
    </message>
    <message>
        <source>Scan stopped. Pages read: %1</source>
        <translation>Suche angehalten. Gelesene Seiten: %1</translation>
    </message>
    <message>
        <source>Scan ended: the site has more than fits. Pages read: %1</source>
        <translation>Suche beendet: Die Website hat mehr, als Platz findet. Gelesene Seiten: %1</translation>
    </message>
    <message>
        <source>The page at this address cannot be read.</source>
        <translation>Die Seite unter dieser Adresse kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This is not the address of a page.</source>
        <translation>Dies ist nicht die Adresse einer Seite.</translation>
    </message>
    <message>
        <source>The site is being scanned already.</source>
        <translation>Die Site wird bereits durchsucht.</translation>
    </message>
    <message>
        <source>The site&apos;s host is set to %1, but this page is on %2: no link is followed.</source>
        <translation>Als Host der Site ist %1 eingestellt, diese Seite liegt aber auf %2: Keinem Link wird gefolgt.</translation>
    </message>
    <message>
        <source>A second scan at the same time cannot be kept away: %1</source>
        <translation>Eine zweite Suche zur gleichen Zeit lässt sich nicht fernhalten: %1</translation>
    </message>
    <message>
        <source>Pages refused: %1. A start page without &lt;html&gt; has pages read as ASCII, and these hold other letters.</source>
        <translation>Abgelehnte Seiten: %1. Eine Startseite ohne &lt;html&gt; lässt Seiten als ASCII lesen, und diese enthalten andere Buchstaben.</translation>
    </message>
    <message>
        <source>The pages that this address leads to were all read before; Clear List forgets them, and a scan reads them again.</source>
        <translation>Die Seiten, zu denen diese Adresse führt, wurden alle schon gelesen; „Liste leeren“ vergisst sie, und eine Suche liest sie erneut.</translation>
    </message>
</context>
<context>
    <name>kestro::ScreensPanel</name>
    <message>
        <source>A movie on each</source>
        <translation>Auf jedem ein eigener Film</translation>
    </message>
    <message>
        <source>The same movie on all</source>
        <translation>Auf allen derselbe Film</translation>
    </message>
    <message>
        <source>One movie across all</source>
        <translation>Ein Film über alle hinweg</translation>
    </message>
    <message>
        <source>Monitors that show the saver</source>
        <translation>Monitore, die den Bildschirmschoner zeigen</translation>
    </message>
    <message>
        <source>The others are black meanwhile</source>
        <translation>Die anderen sind so lange schwarz</translation>
    </message>
    <message>
        <source>Scree&amp;ns:</source>
        <comment>how they share the saver</comment>
        <translation>&amp;Bildschirme:</translation>
    </message>
    <message>
        <source>All monitors</source>
        <translation>Alle Monitore</translation>
    </message>
    <message>
        <source>The first monitor alone</source>
        <translation>Nur der erste Monitor</translation>
    </message>
    <message>
        <source>%1 alone</source>
        <translation>nur %1</translation>
    </message>
</context>
<context>
    <name>kestro::ScrubBar</name>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
</context>
<context>
    <name>kestro::StarterPane</name>
    <message>
        <source>Begin with one of these:</source>
        <translation>Zum Anfang eins davon:</translation>
    </message>
    <message>
        <source>Your videos</source>
        <translation>Eigene Videos</translation>
    </message>
    <message>
        <source>Add Your Videos</source>
        <translation>Eigene Videos hinzufügen</translation>
    </message>
    <message>
        <source>Theme movies</source>
        <translation>Themenfilme</translation>
    </message>
    <message>
        <source>Add the Theme Movies</source>
        <translation>Themenfilme hinzufügen</translation>
    </message>
    <message>
        <source>Intro</source>
        <translation>Intro</translation>
    </message>
    <message>
        <source>Add the Intro</source>
        <translation>Intro hinzufügen</translation>
    </message>
    <message>
        <source>The movie that introduces Kestro</source>
        <translation>Der Film, der Kestro vorstellt</translation>
    </message>
    <message>
        <source>Backgrounds that come with Kestro: %1</source>
        <translation>Hintergründe, die zu Kestro gehören: %1</translation>
    </message>
    <message>
        <source>Movies found: %1</source>
        <translation>Gefundene Filme: %1</translation>
    </message>
</context>
<context>
    <name>kestro::StarterRow</name>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
</context>
<context>
    <name>kestro::ThemePanel</name>
    <message>
        <source>Preview of the selected movie</source>
        <translation>Vorschau des ausgewählten Films</translation>
    </message>
    <message>
        <source>No theme movies were found.</source>
        <translation>Es wurden keine Themenfilme gefunden.</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
</context>
<context>
    <name>kestro::ThemeTableModel</name>
    <message>
        <source>Recommended</source>
        <translation>Empfohlen</translation>
    </message>
    <message>
        <source>Not recommended</source>
        <translation>Nicht empfohlen</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Thema</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>Film</translation>
    </message>
</context>
<context>
    <name>kestro::TrailerDownload</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Saving %1…</source>
        <translation>%1 wird gespeichert…</translation>
    </message>
    <message>
        <source>Save Trailer</source>
        <translation>Trailer speichern</translation>
    </message>
</context>
<context>
    <name>kestro::TrailerTableModel</name>
    <message>
        <source>SEL</source>
        <translation>AUSW.</translation>
    </message>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>SIZE</source>
        <translation>GRÖSSE</translation>
    </message>
    <message>
        <source>DATE</source>
        <translation>DATUM</translation>
    </message>
    <message>
        <source>A mark of your own: it is kept with the trailer, and changes nothing else</source>
        <translation>Ein eigenes Merkzeichen: Es bleibt beim Trailer und ändert sonst nichts</translation>
    </message>
    <message>
        <source>Ticked</source>
        <translation>Angehakt</translation>
    </message>
    <message>
        <source>Not ticked</source>
        <translation>Nicht angehakt</translation>
    </message>
</context>
<context>
    <name>kestro::XscreensaverPanel</name>
    <message>
        <source>Kestro is in your list of XScreenSaver&apos;s savers.</source>
        <translation>Kestro ist in Ihrer Liste der Bildschirmschoner von XScreenSaver.</translation>
    </message>
    <message>
        <source>Kestro is not in your list of XScreenSaver&apos;s savers.</source>
        <translation>Kestro ist nicht in Ihrer Liste der Bildschirmschoner von XScreenSaver.</translation>
    </message>
    <message>
        <source>&amp;Remove from XScreenSaver</source>
        <translation>Aus XScreenSaver &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Add to XScreenSaver</source>
        <translation>Zu XScreenSaver &amp;hinzufügen</translation>
    </message>
    <message>
        <source>XScreenSaver is not installed. The command &quot;kestro&quot; runs the saver at any time.</source>
        <translation>XScreenSaver ist nicht installiert. Der Befehl „kestro“ startet den Bildschirmschoner jederzeit.</translation>
    </message>
</context>
</TS>
