<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en_US">
<context>
    <name>EntryText</name>
    <message>
        <source>Newest trailers</source>
        <translation>Tráileres más recientes</translation>
    </message>
    <message>
        <source>Left out: it does not say how many trailers of which width</source>
        <translation>Se omite: no dice cuántos tráileres ni de qué anchura</translation>
    </message>
    <message>
        <source>Left out: a web page, no movie</source>
        <translation>Se omite: es una página web, no una película</translation>
    </message>
    <message>
        <source>Cannot be opened: %1</source>
        <translation>No se puede abrir: %1</translation>
    </message>
    <message>
        <source>Web content, %1</source>
        <translation>Contenido web, %1</translation>
    </message>
    <message>
        <source>%1: cannot be opened, %2</source>
        <translation>%1: no se puede abrir, %2</translation>
    </message>
    <message>
        <source>A click on the sign looks again.</source>
        <translation>Un clic en el signo vuelve a comprobarlo.</translation>
    </message>
    <message>
        <source>The newest trailer, %1 pixels wide</source>
        <translation>El tráiler más reciente, de %1 píxeles de ancho</translation>
    </message>
    <message>
        <source>%1 newest trailers, each %2 pixels wide</source>
        <translation>Los %1 tráileres más recientes, cada uno de %2 píxeles de ancho</translation>
    </message>
    <message>
        <source>All trailers, each %1 pixels wide</source>
        <translation>Todos los tráileres, cada uno de %1 píxeles de ancho</translation>
    </message>
    <message>
        <source>Left out: it names no folder of this machine</source>
        <translation>Se omite: no nombra ninguna carpeta de este equipo</translation>
    </message>
    <message>
        <source>Folder, %1</source>
        <translation>Carpeta, %1</translation>
    </message>
    <message>
        <source>Folder without movies, %1</source>
        <translation>Carpeta sin películas, %1</translation>
    </message>
    <message>
        <source>Folder with one movie, %1</source>
        <translation>Carpeta con una película, %1</translation>
    </message>
    <message>
        <source>Folder with %L1 movies, %2</source>
        <translation>Carpeta con %L1 películas, %2</translation>
    </message>
    <message>
        <source>List, %1</source>
        <translation>Lista, %1</translation>
    </message>
    <message>
        <source>List without movies, %1</source>
        <translation>Lista sin películas, %1</translation>
    </message>
    <message>
        <source>List with one movie, %1</source>
        <translation>Lista con una película, %1</translation>
    </message>
    <message>
        <source>List with %L1 movies, %2</source>
        <translation>Lista con %L1 películas, %2</translation>
    </message>
    <message>
        <source>Starred</source>
        <translation>Con estrella</translation>
    </message>
    <message>
        <source>Plays by day</source>
        <translation>Se reproduce de día</translation>
    </message>
    <message>
        <source>Plays at night</source>
        <translation>Se reproduce de noche</translation>
    </message>
    <message>
        <source>Plays from %1 until %2</source>
        <translation>Se reproduce de %1 a %2</translation>
    </message>
</context>
<context>
    <name>Kestro</name>
    <message>
        <source>You selected &apos;.slideSaver&apos;. 
You may need to restart &apos;System Preferences.app&apos; to take effect properly.</source>
        <translation>Ha seleccionado un «.slideSaver». 
Puede que deba reiniciar «System Preferences.app» para que surta efecto correctamente.</translation>
    </message>
    <message>
        <source>Invalid URL string.</source>
        <translation>URL no válida.</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>Aviso</translation>
    </message>
    <message>
        <source>Failed to create movie.
Please try again.</source>
        <translation>No se ha podido abrir la película.
Inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Add Movie</source>
        <translation>Añadir película</translation>
    </message>
    <message>
        <source>No movie selected</source>
        <translation>Ninguna película seleccionada</translation>
    </message>
    <message>
        <source>Add movies in the settings</source>
        <translation>Añada películas en los ajustes</translation>
    </message>
    <message>
        <source>No movie could be loaded</source>
        <translation>No se pudo cargar ninguna película</translation>
    </message>
    <message>
        <source>Check the playlist and the network</source>
        <translation>Compruebe la lista de reproducción y la red</translation>
    </message>
    <message>
        <source>The settings file could not be read. It was kept as %1.</source>
        <translation>No se pudo leer el archivo de ajustes. Se ha conservado como %1.</translation>
    </message>
    <message>
        <source>The settings could not be saved in %1. They are lost when this window closes.</source>
        <translation>No se pudieron guardar los ajustes en %1. Se perderán cuando se cierre esta ventana.</translation>
    </message>
    <message>
        <source>Failed to save the movie as %1.
%2</source>
        <translation>No se ha podido guardar la película como %1.
%2</translation>
    </message>
    <message>
        <source>The folder %1 cannot be shown.</source>
        <translation>No se puede mostrar la carpeta %1.</translation>
    </message>
    <message>
        <source>There are no movies in what was dropped.</source>
        <translation>No hay ninguna película en lo que se ha soltado.</translation>
    </message>
    <message>
        <source>Looking for movies in what was dropped…</source>
        <translation>Buscando películas en lo que se ha soltado…</translation>
    </message>
    <message>
        <source>The disk does not answer. Movies may be missing from what was dropped.</source>
        <translation>El disco no responde. Pueden faltar películas de lo que se ha soltado.</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Añadir carpeta</translation>
    </message>
    <message>
        <source>Sound is off</source>
        <translation>El sonido está desactivado</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>Volumen: %1 %</translation>
    </message>
    <message>
        <source>There is no other movie</source>
        <translation>No hay otra película</translation>
    </message>
    <message>
        <source>Not played any more (U takes that back)</source>
        <translation>No se reproducirá más (U lo deshace)</translation>
    </message>
    <message>
        <source>Nothing to take back</source>
        <translation>No hay nada que deshacer</translation>
    </message>
    <message>
        <source>Played again from now on</source>
        <translation>Se reproduce de nuevo desde ahora</translation>
    </message>
</context>
<context>
    <name>LatestPanel</name>
    <message>
        <source>Latest Trailers</source>
        <translation>Últimos tráileres</translation>
    </message>
    <message>
        <source>Adds an entry that always plays the newest trailers found.</source>
        <translation>Añade una entrada que siempre reproduce los últimos tráileres encontrados.</translation>
    </message>
    <message>
        <source>&amp;Number of trailers:</source>
        <translation>&amp;Número de tráileres:</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Todos</translation>
    </message>
    <message>
        <source>Frame &amp;width:</source>
        <translation>&amp;Anchura de imagen:</translation>
    </message>
</context>
<context>
    <name>MoreOptions</name>
    <message>
        <source>&amp;Remember what was shown</source>
        <translation>&amp;Recordar lo que se ha mostrado</translation>
    </message>
    <message>
        <source>In random order no movie comes twice before all were seen.</source>
        <translation>En orden aleatorio ninguna película se repite antes de que se hayan visto todas.</translation>
    </message>
    <message>
        <source>C&amp;hange movies:</source>
        <translation>Ca&amp;mbiar de película:</translation>
    </message>
    <message>
        <source>A longer movie gives way to the next one then.</source>
        <translation>Una película más larga deja entonces su sitio a la siguiente.</translation>
    </message>
    <message>
        <source>At their end</source>
        <translation>Al final</translation>
    </message>
    <message>
        <source>Begin any&amp;where in a movie</source>
        <translation>Empezar en &amp;cualquier punto</translation>
    </message>
    <message>
        <source>And not at its beginning, so that long ones are seen whole in time.</source>
        <translation>Y no al principio: así las largas se ven enteras con el tiempo.</translation>
    </message>
    <message>
        <source>&amp;Dissolve:</source>
        <translation>&amp;Fundido:</translation>
    </message>
    <message>
        <source>One movie becomes the next one so slowly.</source>
        <translation>Tan despacio se convierte una película en la siguiente.</translation>
    </message>
    <message>
        <source>&amp;Keep movies of sites:</source>
        <translation>&amp;Guardar películas de sitios:</translation>
    </message>
    <message>
        <source>They play from the disk the next time; the newest are fetched ahead.</source>
        <translation>La próxima vez se reproducen desde el disco; las más nuevas se descargan antes.</translation>
    </message>
    <message>
        <source>L&amp;atitude:</source>
        <translation>&amp;Latitud:</translation>
    </message>
    <message>
        <source>In degrees, less than nought in the south. Tells when it is day, for what plays by day.</source>
        <translation>En grados, menos de cero en el sur. Dice cuándo es de día, para lo que se ve de día.</translation>
    </message>
    <message>
        <source>L&amp;ongitude:</source>
        <translation>L&amp;ongitud:</translation>
    </message>
    <message>
        <source>In degrees, less than nought in the west. Without both day is from 7 to 19.</source>
        <translation>En grados, menos de cero en el oeste. Sin ambas el día es de 7 a 19.</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Películas</translation>
    </message>
    <message>
        <source>On the Picture</source>
        <translation>Sobre la imagen</translation>
    </message>
    <message>
        <source>Show the &amp;title</source>
        <translation>Mostrar el &amp;título</translation>
    </message>
    <message>
        <source>In a corner that changes, with the folder or the site it is from.</source>
        <translation>En una esquina que cambia, con la carpeta o el sitio del que viene.</translation>
    </message>
    <message>
        <source>Show the ti&amp;me</source>
        <translation>Mostrar la &amp;hora</translation>
    </message>
    <message>
        <source>As the clock of this desktop has it.</source>
        <translation>Como la da el reloj de este escritorio.</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Ke&amp;ys for the movie</source>
        <translation>Tecla&amp;s para la película</translation>
    </message>
    <message>
        <source>Arrows change movie and volume, i shows the title, d never plays a movie again, u takes that back.</source>
        <translation>Las flechas cambian de película y de volumen, i muestra el título, d no vuelve a reproducirla nunca, u lo deshace.</translation>
    </message>
    <message>
        <source>&amp;Programs may control it</source>
        <translation>Los &amp;programas pueden controlarlo</translation>
    </message>
    <message>
        <source>The desktop&apos;s media controls, and &quot;kestro next&quot; and its like.</source>
        <translation>Los controles multimedia del escritorio, y «kestro next» y similares.</translation>
    </message>
    <message>
        <source>Where You Are</source>
        <translation>Dónde está</translation>
    </message>
    <message>
        <source>not known</source>
        <comment>degrees of latitude or longitude</comment>
        <translation>no se sabe</translation>
    </message>
    <message>
        <source>%1 s</source>
        <comment>seconds</comment>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <comment>minutes</comment>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>None</source>
        <comment>no dissolve</comment>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>None</source>
        <comment>no movie is kept</comment>
        <translation>Nada</translation>
    </message>
</context>
<context>
    <name>MovieFault</name>
    <message>
        <source>no such file</source>
        <translation>el archivo no existe</translation>
    </message>
    <message>
        <source>not a file</source>
        <translation>no es un archivo</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>no se puede leer</translation>
    </message>
    <message>
        <source>empty file</source>
        <translation>archivo vacío</translation>
    </message>
    <message>
        <source>not a kind of file that holds movies</source>
        <translation>no es un tipo de archivo que contenga películas</translation>
    </message>
    <message>
        <source>no moving picture in it</source>
        <translation>no contiene imágenes en movimiento</translation>
    </message>
    <message>
        <source>no decoder for %1</source>
        <translation>no hay decodificador para %1</translation>
    </message>
    <message>
        <source>too large: %1</source>
        <translation>demasiado grande: %1</translation>
    </message>
    <message>
        <source>damaged, or no movie</source>
        <translation>dañado, o no es una película</translation>
    </message>
    <message>
        <source>no answer in time</source>
        <translation>no hubo respuesta a tiempo</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>no se puede llegar al servidor</translation>
    </message>
    <message>
        <source>the server does not have it</source>
        <translation>no está en el servidor</translation>
    </message>
    <message>
        <source>the server refuses it</source>
        <translation>el servidor se niega a darla</translation>
    </message>
    <message>
        <source>movies are played from files, http and https only</source>
        <translation>las películas solo se reproducen desde archivos, http y https</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>no hay memoria suficiente</translation>
    </message>
</context>
<context>
    <name>SSConfig</name>
    <message>
        <source>Screen Saver Options</source>
        <translation>Opciones del salvapantallas</translation>
    </message>
    <message>
        <source>&amp;Playlist</source>
        <translation>&amp;Lista de reproducción</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Lista de reproducción</translation>
    </message>
    <message>
        <source>The movies that play, from the first to the last</source>
        <translation>Las películas que se reproducen, de la primera a la última</translation>
    </message>
    <message>
        <source>Add &amp;Movie…</source>
        <translation>Añadir &amp;película…</translation>
    </message>
    <message>
        <source>Adds movie files</source>
        <translation>Añade archivos de película</translation>
    </message>
    <message>
        <source>Add &amp;URL…</source>
        <translation>Añadir &amp;URL…</translation>
    </message>
    <message>
        <source>Adds a movie on a server, by its address</source>
        <translation>Añade una película de un servidor mediante su dirección</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>El&amp;iminar</translation>
    </message>
    <message>
        <source>Takes the selected movies out of the playlist</source>
        <translation>Quita las películas seleccionadas de la lista de reproducción</translation>
    </message>
    <message>
        <source>&amp;Trailers…</source>
        <translation>&amp;Tráileres…</translation>
    </message>
    <message>
        <source>Browses the trailers that were found, and adds them</source>
        <translation>Muestra los tráileres encontrados y los añade</translation>
    </message>
    <message>
        <source>Th&amp;eme Movies…</source>
        <translation>Películas te&amp;máticas…</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Reproducción</translation>
    </message>
    <message>
        <source>Play &amp;sound</source>
        <translation>Reproducir &amp;sonido</translation>
    </message>
    <message>
        <source>The first monitor plays the sound of its movies</source>
        <translation>El primer monitor reproduce el sonido de sus películas</translation>
    </message>
    <message>
        <source>Play in &amp;random order</source>
        <translation>Orden &amp;aleatorio</translation>
    </message>
    <message>
        <source>Each movie plays once before any plays again</source>
        <translation>Cada película se reproduce una vez antes de que se repita alguna</translation>
    </message>
    <message>
        <source>Continue where the &amp;last run stopped</source>
        <translation>&amp;Continuar donde se detuvo la última vez</translation>
    </message>
    <message>
        <source>Starts with the movie, and at the place, where it was stopped</source>
        <translation>Empieza con la película y en el punto en que se detuvo</translation>
    </message>
    <message>
        <source>Play &amp;back and forth</source>
        <translation>Reproducir adelante &amp;y atrás</translation>
    </message>
    <message>
        <source>Plays a playlist of one movie forwards, then backwards</source>
        <translation>Reproduce una lista de una sola película hacia delante y luego hacia atrás</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Tamaño</translation>
    </message>
    <message>
        <source>&amp;Full screen</source>
        <translation>Pa&amp;ntalla completa</translation>
    </message>
    <message>
        <source>Movies fill the screen; otherwise they move about in a smaller size</source>
        <translation>Las películas llenan la pantalla; si no, se mueven por ella en menor tamaño</translation>
    </message>
    <message>
        <source>F&amp;it</source>
        <translation>A&amp;justar</translation>
    </message>
    <message>
        <source>As large as the whole picture fits on the screen</source>
        <translation>Tan grande como quepa la imagen entera en la pantalla</translation>
    </message>
    <message>
        <source>Stretc&amp;h</source>
        <translation>Esti&amp;rar</translation>
    </message>
    <message>
        <source>All over the screen, whatever the shape of the picture</source>
        <translation>Por toda la pantalla, sea cual sea la forma de la imagen</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>&amp;Zoom</translation>
    </message>
    <message>
        <source>Large enough to cover the screen; what lies outside is cut off</source>
        <translation>Lo bastante grande para cubrir la pantalla; lo que sobresale se recorta</translation>
    </message>
    <message>
        <source>Smaller Than the Screen</source>
        <translation>Menor que la pantalla</translation>
    </message>
    <message>
        <source>Movement:</source>
        <translation>Movimiento:</translation>
    </message>
    <message>
        <source>Fl&amp;y</source>
        <translation>Cam&amp;biar de sitio</translation>
    </message>
    <message>
        <source>The movie stands still, and now and then goes to another place</source>
        <translation>La película permanece quieta y de vez en cuando cambia de sitio</translation>
    </message>
    <message>
        <source>Bou&amp;nce</source>
        <translation>Reb&amp;otar</translation>
    </message>
    <message>
        <source>The movie drifts about and bounces off the edges of the screen</source>
        <translation>La película va a la deriva y rebota en los bordes de la pantalla</translation>
    </message>
    <message>
        <source>New place:</source>
        <translation>Nuevo sitio:</translation>
    </message>
    <message>
        <source>E&amp;very</source>
        <translation>Ca&amp;da</translation>
    </message>
    <message>
        <source>The movie goes to another place after so many seconds</source>
        <translation>La película cambia de sitio tras estos segundos</translation>
    </message>
    <message>
        <source>Seconds until the movie goes to another place</source>
        <translation>Segundos hasta que la película cambia de sitio</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>segundos</translation>
    </message>
    <message>
        <source>&amp;When the movie ends</source>
        <translation>Al &amp;final de la película</translation>
    </message>
    <message>
        <source>The movie goes to another place at its end</source>
        <translation>La película cambia de sitio al terminar</translation>
    </message>
    <message>
        <source>Sc&amp;ale:</source>
        <translation>&amp;Escala:</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Escala</translation>
    </message>
    <message>
        <source>Size of the movie, 1 for its own</source>
        <translation>Tamaño de la película, 1 para el propio</translation>
    </message>
    <message>
        <source>Size of the movie; 1 is its own</source>
        <translation>Tamaño de la película; 1 es el propio</translation>
    </message>
    <message>
        <source>Scale as a number</source>
        <translation>Escala en cifras</translation>
    </message>
    <message>
        <source>Bac&amp;kground:</source>
        <translation>Sal&amp;vapantallas de fondo:</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Fondo</translation>
    </message>
    <message>
        <source>The screen saver that runs behind the movies</source>
        <translation>El salvapantallas que se ejecuta detrás de las películas</translation>
    </message>
    <message>
        <source>Leave fadin&amp;g pictures behind</source>
        <translation>Dejar imá&amp;genes que se desvanecen</translation>
    </message>
    <message>
        <source>Where a movie was, its picture stays behind and fades out</source>
        <translation>Donde estuvo una película, su imagen permanece y se desvanece</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Subir</translation>
    </message>
    <message>
        <source>Moves the selected movie up (Alt+Up)</source>
        <translation>Sube la película seleccionada (Alt+Arriba)</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Bajar</translation>
    </message>
    <message>
        <source>Moves the selected movie down (Alt+Down)</source>
        <translation>Baja la película seleccionada (Alt+Abajo)</translation>
    </message>
    <message>
        <source>Browses the background movies that come with Kestro</source>
        <translation>Muestra las películas de fondo que vienen con Kestro</translation>
    </message>
    <message>
        <source>Add Folder…</source>
        <translation>Añadir carpeta…</translation>
    </message>
    <message>
        <source>Adds a folder: the movies in it, and those that come into it</source>
        <translation>Añade una carpeta: las películas que contiene y las que lleguen a ella</translation>
    </message>
</context>
<context>
    <name>ThemePanel</name>
    <message>
        <source>Theme Movies</source>
        <translation>Películas temáticas</translation>
    </message>
    <message>
        <source>T&amp;heme movies. Those in red are recommended as backgrounds.</source>
        <translation>Películas &amp;temáticas. Las que están en rojo se recomiendan como fondo.</translation>
    </message>
    <message>
        <source>Theme movies</source>
        <translation>Películas temáticas</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Reproducir</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Detener</translation>
    </message>
</context>
<context>
    <name>TrailerCont</name>
    <message>
        <source>Trailers</source>
        <translation>Tráileres</translation>
    </message>
    <message>
        <source>Site &amp;address:</source>
        <translation>&amp;Dirección del sitio:</translation>
    </message>
    <message>
        <source>The page of a trailer site that a scan begins with</source>
        <translation>La página de un sitio de tráileres en la que empieza el rastreo</translation>
    </message>
    <message>
        <source>Looks for trailers on the site, or stops looking</source>
        <translation>Busca tráileres en el sitio o detiene el rastreo</translation>
    </message>
    <message>
        <source>Trailers found</source>
        <translation>Tráileres encontrados</translation>
    </message>
    <message>
        <source>Selected trailers, and all trailers</source>
        <translation>Tráileres seleccionados y todos los tráileres</translation>
    </message>
    <message>
        <source>Scanning</source>
        <translation>Rastreando</translation>
    </message>
    <message>
        <source>&amp;Find:</source>
        <translation>&amp;Buscar:</translation>
    </message>
    <message>
        <source>Return selects the next trailer whose address contains this text</source>
        <translation>Intro selecciona el siguiente tráiler cuya dirección contiene este texto</translation>
    </message>
    <message>
        <source>Forgets all trailers and all pages that were read</source>
        <translation>Olvida todos los tráileres y todas las páginas leídas</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>&amp;Vaciar lista</translation>
    </message>
    <message>
        <source>Plays the selected trailer in a window of its own</source>
        <translation>Reproduce el tráiler seleccionado en su propia ventana</translation>
    </message>
    <message>
        <source>&amp;Preview</source>
        <translation>Vista &amp;previa</translation>
    </message>
    <message>
        <source>Saves the movie file of the selected trailer</source>
        <translation>Guarda el archivo de película del tráiler seleccionado</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Guardar…</translation>
    </message>
    <message>
        <source>Adds an entry to the playlist that stands for the newest trailers</source>
        <translation>Añade a la lista de reproducción una entrada que representa los tráileres más recientes</translation>
    </message>
    <message>
        <source>Add &amp;Latest…</source>
        <translation>Añadir ú&amp;ltimos…</translation>
    </message>
    <message>
        <source>Adds the selected trailers to the playlist</source>
        <translation>Añade los tráileres seleccionados a la lista de reproducción</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>&amp;Añadir</translation>
    </message>
    <message>
        <source>Trailers selected:</source>
        <translation>Tráileres seleccionados:</translation>
    </message>
</context>
<context>
    <name>URLPanel</name>
    <message>
        <source>Add URL</source>
        <translation>Añadir URL</translation>
    </message>
    <message>
        <source>&amp;Address of a movie, or of Flash content:</source>
        <translation>&amp;Dirección de una película o de contenido Flash:</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Dirección</translation>
    </message>
</context>
<context>
    <name>kestro::ConfigSheet</name>
    <message>
        <source>seconds: all the time</source>
        <translation>segundos: sin parar</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
</context>
<context>
    <name>kestro::DoctorWindow</name>
    <message>
        <source>C&amp;opy</source>
        <translation>C&amp;opiar</translation>
    </message>
    <message>
        <source>Something Wrong?</source>
        <translation>¿Algo va mal?</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>Lo que se ha encontrado</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>Looking…</source>
        <translation>Mirando…</translation>
    </message>
    <message>
        <source>Cannot start %1: %2</source>
        <translation>No se puede iniciar %1: %2</translation>
    </message>
    <message>
        <source>Nothing could be found out.</source>
        <translation>No se ha podido averiguar nada.</translation>
    </message>
</context>
<context>
    <name>kestro::HoursPanel</name>
    <message>
        <source>Play Between</source>
        <translation>Reproducir entre</translation>
    </message>
    <message>
        <source>&amp;From:</source>
        <translation>&amp;Desde:</translation>
    </message>
    <message>
        <source>&amp;Until:</source>
        <translation>&amp;Hasta:</translation>
    </message>
</context>
<context>
    <name>kestro::IdlePanel</name>
    <message>
        <source>&amp;Start by itself when away for</source>
        <translation>&amp;Iniciar solo tras ausencia de</translation>
    </message>
    <message>
        <source> min</source>
        <comment>minutes, after their number</comment>
        <translation> min</translation>
    </message>
    <message>
        <source>Minutes until the saver starts</source>
        <translation>Minutos hasta que se inicia el salvapantallas</translation>
    </message>
    <message>
        <source>Nothing starts the saver by itself now.</source>
        <translation>Ahora nada inicia el salvapantallas por sí solo.</translation>
    </message>
    <message>
        <source>never</source>
        <comment>black after so many minutes, or never</comment>
        <translation>nunca</translation>
    </message>
    <message>
        <source>Minutes until the saver is black</source>
        <translation>Minutos hasta que el salvapantallas quede en negro</translation>
    </message>
    <message>
        <source>From then on nothing plays, and the displays can sleep</source>
        <translation>Desde entonces no se reproduce nada y las pantallas pueden dormir</translation>
    </message>
    <message>
        <source>&amp;black after</source>
        <comment>so many minutes, or never</comment>
        <translation>en &amp;negro tras</translation>
    </message>
</context>
<context>
    <name>kestro::IdleWords</name>
    <message>
        <source>Now: %1 looks after this session.</source>
        <translation>Ahora: %1 se ocupa de esta sesión.</translation>
    </message>
    <message>
        <source>Now: the saver is shown.</source>
        <translation>Ahora: se muestra el salvapantallas.</translation>
    </message>
    <message>
        <source>Now kept from starting: %1.</source>
        <translation>Ahora no se inicia: %1.</translation>
    </message>
    <message>
        <source>The saver ended unexpectedly the last time.</source>
        <translation>El salvapantallas terminó inesperadamente la última vez.</translation>
    </message>
    <message>
        <source>Now: waiting until you are away.</source>
        <translation>Ahora: espera a que se ausente.</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>what keeps the saver from starting, and who</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>a program asks for it</source>
        <translation>un programa lo pide</translation>
    </message>
    <message>
        <source>the session is locked</source>
        <translation>la sesión está bloqueada</translation>
    </message>
    <message>
        <source>the machine goes to sleep</source>
        <translation>el equipo va a suspenderse</translation>
    </message>
    <message>
        <source>the lid is closed</source>
        <translation>la tapa está cerrada</translation>
    </message>
    <message>
        <source>power is to be saved</source>
        <translation>hay que ahorrar energía</translation>
    </message>
    <message>
        <source>the microphone is in use</source>
        <translation>el micrófono está en uso</translation>
    </message>
    <message>
        <source>the camera is in use</source>
        <translation>la cámara está en uso</translation>
    </message>
    <message>
        <source>a game pad is in use</source>
        <translation>un mando de juego está en uso</translation>
    </message>
    <message>
        <source>a full-screen window plays sound</source>
        <translation>una ventana a pantalla completa reproduce sonido</translation>
    </message>
</context>
<context>
    <name>kestro::MoreWindow</name>
    <message>
        <source>More</source>
        <translation>Más</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>C&amp;errar</translation>
    </message>
</context>
<context>
    <name>kestro::PanelWindow</name>
    <message>
        <source>Sort by &amp;URL</source>
        <translation>Ordenar por &amp;URL</translation>
    </message>
    <message>
        <source>Sort by D&amp;ate</source>
        <translation>Ordenar por &amp;fecha</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Rastrear</translation>
    </message>
    <message>
        <source>Cl&amp;ose</source>
        <translation>&amp;Cerrar</translation>
    </message>
</context>
<context>
    <name>kestro::PlayButton</name>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistMenu</name>
    <message>
        <source>&amp;Open Folder</source>
        <translation>Abrir la &amp;carpeta</translation>
    </message>
    <message>
        <source>&amp;Look Again</source>
        <translation>&amp;Volver a comprobar</translation>
    </message>
    <message>
        <source>&amp;Star</source>
        <translation>Estrell&amp;a</translation>
    </message>
    <message>
        <source>&amp;Plays</source>
        <translation>Se rep&amp;roduce</translation>
    </message>
    <message>
        <source>&amp;Always</source>
        <translation>&amp;Siempre</translation>
    </message>
    <message>
        <source>By &amp;Day</source>
        <translation>De &amp;día</translation>
    </message>
    <message>
        <source>At &amp;Night</source>
        <translation>De &amp;noche</translation>
    </message>
    <message>
        <source>&amp;Between…</source>
        <translation>&amp;Entre…</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistPane</name>
    <message>
        <source>Add movies with the buttons below, or drop files and folders here.</source>
        <translation>Añada películas con los botones de abajo, o suelte aquí archivos y carpetas.</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistTable</name>
    <message>
        <source>Movie</source>
        <translation>Película</translation>
    </message>
</context>
<context>
    <name>kestro::PreferencesWindow</name>
    <message>
        <source>&amp;Options…</source>
        <translation>&amp;Opciones…</translation>
    </message>
    <message>
        <source>&amp;Try It</source>
        <translation>&amp;Probar</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>Kestro Settings</source>
        <translation>Ajustes de Kestro</translation>
    </message>
    <message>
        <source>The screen saver cannot be loaded.</source>
        <translation>No se puede cargar el salvapantallas.</translation>
    </message>
    <message>
        <source>Something &amp;Wrong?</source>
        <translation>¿Algo va &amp;mal?</translation>
    </message>
    <message>
        <source>&amp;More…</source>
        <translation>Má&amp;s…</translation>
    </message>
</context>
<context>
    <name>kestro::PreviewWindow</name>
    <message>
        <source>Movie Trailer</source>
        <translation>Tráiler de película</translation>
    </message>
</context>
<context>
    <name>kestro::RQTableViewRowMove</name>
    <message>
        <source>Rows are moved by dragging with Alt held, or with Alt+Up and Alt+Down.</source>
        <translation>Las filas se mueven arrastrándolas con Alt pulsada, o con Alt+Arriba y Alt+Abajo.</translation>
    </message>
    <message>
        <source>Rows are moved by dragging, or with Alt+Up and Alt+Down.</source>
        <translation>Las filas se mueven arrastrándolas, o con Alt+Arriba y Alt+Abajo.</translation>
    </message>
</context>
<context>
    <name>kestro::SaveTrailer</name>
    <message>
        <source>%1 already exists.
Replace it?</source>
        <translation>%1 ya existe.
¿Desea reemplazarlo?</translation>
    </message>
    <message>
        <source>Save Trailer</source>
        <translation>Guardar tráiler</translation>
    </message>
</context>
<context>
    <name>kestro::SaverPreview</name>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
</context>
<context>
    <name>kestro::SaverRun</name>
    <message>
        <source>The saver ended unexpectedly.</source>
        <translation>El salvapantallas terminó inesperadamente.</translation>
    </message>
    <message>
        <source>Cannot start %1: %2</source>
        <translation>No se puede iniciar %1: %2</translation>
    </message>
    <message>
        <source>The saver could not run.</source>
        <translation>El salvapantallas no se pudo ejecutar.</translation>
    </message>
</context>
<context>
    <name>kestro::ScanEndText</name>
    <message>
        <source>Scan finished. Pages read: %1</source>
        <translation>Rastreo terminado. Páginas leídas: %1</translation>
    </message>
    <message>
        <source>Scan stopped. Pages read: %1</source>
        <translation>Rastreo detenido. Páginas leídas: %1</translation>
    </message>
    <message>
        <source>Scan ended: the site has more than fits. Pages read: %1</source>
        <translation>Rastreo terminado: el sitio tiene más de lo que cabe. Páginas leídas: %1</translation>
    </message>
    <message>
        <source>The page at this address cannot be read.</source>
        <translation>No se puede leer la página de esta dirección.</translation>
    </message>
    <message>
        <source>This is not the address of a page.</source>
        <translation>Esta no es la dirección de una página.</translation>
    </message>
    <message>
        <source>The site is being scanned already.</source>
        <translation>El sitio ya se está rastreando.</translation>
    </message>
    <message>
        <source>The site&apos;s host is set to %1, but this page is on %2: no link is followed.</source>
        <translation>El host configurado del sitio es %1, pero esta página está en %2: no se sigue ningún enlace.</translation>
    </message>
    <message>
        <source>A second scan at the same time cannot be kept away: %1</source>
        <translation>No se puede impedir un segundo rastreo al mismo tiempo: %1</translation>
    </message>
    <message>
        <source>Pages refused: %1. A start page without &lt;html&gt; has pages read as ASCII, and these hold other letters.</source>
        <translation>Páginas rechazadas: %1. Una página inicial sin &lt;html&gt; hace que las páginas se lean como ASCII, y estas contienen otras letras.</translation>
    </message>
    <message>
        <source>The pages that this address leads to were all read before; Clear List forgets them, and a scan reads them again.</source>
        <translation>Las páginas a las que lleva esta dirección ya se habían leído todas; «Vaciar lista» las olvida, y un rastreo las lee de nuevo.</translation>
    </message>
</context>
<context>
    <name>kestro::ScreensPanel</name>
    <message>
        <source>A movie on each</source>
        <translation>Una película en cada una</translation>
    </message>
    <message>
        <source>The same movie on all</source>
        <translation>La misma película en todas</translation>
    </message>
    <message>
        <source>One movie across all</source>
        <translation>Una película a lo largo de todas</translation>
    </message>
    <message>
        <source>Monitors that show the saver</source>
        <translation>Monitores que muestran el salvapantallas</translation>
    </message>
    <message>
        <source>The others are black meanwhile</source>
        <translation>Los demás quedan en negro entretanto</translation>
    </message>
    <message>
        <source>Scree&amp;ns:</source>
        <comment>how they share the saver</comment>
        <translation>Pan&amp;tallas:</translation>
    </message>
    <message>
        <source>All monitors</source>
        <translation>Todos los monitores</translation>
    </message>
    <message>
        <source>The first monitor alone</source>
        <translation>Solo el primer monitor</translation>
    </message>
    <message>
        <source>%1 alone</source>
        <translation>solo %1</translation>
    </message>
</context>
<context>
    <name>kestro::ScrubBar</name>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
    </message>
</context>
<context>
    <name>kestro::StarterPane</name>
    <message>
        <source>Begin with one of these:</source>
        <translation>Empiece con uno de estos:</translation>
    </message>
    <message>
        <source>Your videos</source>
        <translation>Sus vídeos</translation>
    </message>
    <message>
        <source>Add Your Videos</source>
        <translation>Añadir sus vídeos</translation>
    </message>
    <message>
        <source>Theme movies</source>
        <translation>Películas temáticas</translation>
    </message>
    <message>
        <source>Add the Theme Movies</source>
        <translation>Añadir las películas temáticas</translation>
    </message>
    <message>
        <source>Intro</source>
        <translation>Introducción</translation>
    </message>
    <message>
        <source>Add the Intro</source>
        <translation>Añadir la introducción</translation>
    </message>
    <message>
        <source>The movie that introduces Kestro</source>
        <translation>La película que presenta Kestro</translation>
    </message>
    <message>
        <source>Backgrounds that come with Kestro: %1</source>
        <translation>Fondos que vienen con Kestro: %1</translation>
    </message>
    <message>
        <source>Movies found: %1</source>
        <translation>Películas encontradas: %1</translation>
    </message>
</context>
<context>
    <name>kestro::StarterRow</name>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
</context>
<context>
    <name>kestro::ThemePanel</name>
    <message>
        <source>Preview of the selected movie</source>
        <translation>Vista previa de la película seleccionada</translation>
    </message>
    <message>
        <source>No theme movies were found.</source>
        <translation>No se han encontrado películas temáticas.</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Añadir</translation>
    </message>
</context>
<context>
    <name>kestro::ThemeTableModel</name>
    <message>
        <source>Recommended</source>
        <translation>Recomendada</translation>
    </message>
    <message>
        <source>Not recommended</source>
        <translation>No recomendada</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Tema</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>Película</translation>
    </message>
</context>
<context>
    <name>kestro::TrailerDownload</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Saving %1…</source>
        <translation>Guardando %1…</translation>
    </message>
    <message>
        <source>Save Trailer</source>
        <translation>Guardar tráiler</translation>
    </message>
</context>
<context>
    <name>kestro::TrailerTableModel</name>
    <message>
        <source>SEL</source>
        <translation>SEL.</translation>
    </message>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>SIZE</source>
        <translation>TAMAÑO</translation>
    </message>
    <message>
        <source>DATE</source>
        <translation>FECHA</translation>
    </message>
    <message>
        <source>A mark of your own: it is kept with the trailer, and changes nothing else</source>
        <translation>Una marca propia: se guarda con el tráiler y no cambia nada más</translation>
    </message>
    <message>
        <source>Ticked</source>
        <translation>Marcado</translation>
    </message>
    <message>
        <source>Not ticked</source>
        <translation>No marcado</translation>
    </message>
</context>
<context>
    <name>kestro::XscreensaverPanel</name>
    <message>
        <source>Kestro is in your list of XScreenSaver&apos;s savers.</source>
        <translation>Kestro está en su lista de salvapantallas de XScreenSaver.</translation>
    </message>
    <message>
        <source>Kestro is not in your list of XScreenSaver&apos;s savers.</source>
        <translation>Kestro no está en su lista de salvapantallas de XScreenSaver.</translation>
    </message>
    <message>
        <source>&amp;Remove from XScreenSaver</source>
        <translation>&amp;Quitar de XScreenSaver</translation>
    </message>
    <message>
        <source>&amp;Add to XScreenSaver</source>
        <translation>&amp;Añadir a XScreenSaver</translation>
    </message>
    <message>
        <source>XScreenSaver is not installed. The command &quot;kestro&quot; runs the saver at any time.</source>
        <translation>XScreenSaver no está instalado. La orden «kestro» muestra el salvapantallas en cualquier momento.</translation>
    </message>
</context>
</TS>
