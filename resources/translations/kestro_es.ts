<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en_US">
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
</context>
<context>
    <name>LatestPanel</name>
    <message>
        <source>Latest Trailers</source>
        <translation>Últimos tráileres</translation>
    </message>
    <message>
        <source>Adds an entry that always plays the newest trailers found.</source>
        <translation>Añade una entrada que siempre reproduce los tráileres más recientes encontrados.</translation>
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
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
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
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Añadir</translation>
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
        <translation>La página de un sitio de tráileres en la que empieza la búsqueda</translation>
    </message>
    <message>
        <source>Looks for trailers on the site, or stops looking</source>
        <translation>Busca tráileres en el sitio o detiene la búsqueda</translation>
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
        <translation>Examinando</translation>
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
</context>
<context>
    <name>kestro::PanelWindow</name>
    <message>
        <source>Sort by &amp;URL</source>
        <translation>Ordenar por &amp;URL</translation>
    </message>
    <message>
        <source>Sort by &amp;Date</source>
        <translation>Ordenar por &amp;fecha</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Examinar</translation>
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
    <name>kestro::PreferencesWindow</name>
    <message>
        <source>&amp;Options…</source>
        <translation>&amp;Opciones…</translation>
    </message>
    <message>
        <source>&amp;Try it</source>
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
        <source>To move a row, drag it, or select it and press Alt+Up or Alt+Down.</source>
        <translation>Para mover una fila, arrástrela, o selecciónela y pulse Alt+Arriba o Alt+Abajo.</translation>
    </message>
    <message>
        <source>To move a row, hold Alt and drag it, or select it and press Alt+Up or Alt+Down. Some window managers take the drag with Alt for moving the window: use the keys there.</source>
        <translation>Para mover una fila, arrástrela con la tecla Alt pulsada, o selecciónela y pulse Alt+Arriba o Alt+Abajo. Algunos gestores de ventanas mueven la ventana al arrastrar con Alt: use ahí las teclas.</translation>
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
    <name>kestro::ScrubBar</name>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
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
    <name>kestro::TrailerPanel</name>
    <message>
        <source>Scan finished. Pages read: %1</source>
        <translation>Búsqueda terminada. Páginas leídas: %1</translation>
    </message>
    <message>
        <source>Scan stopped. Pages read: %1</source>
        <translation>Búsqueda detenida. Páginas leídas: %1</translation>
    </message>
    <message>
        <source>The page at this address cannot be read.</source>
        <translation>No se puede leer la página de esta dirección.</translation>
    </message>
    <message>
        <source>The site is being scanned already.</source>
        <translation>El sitio ya se está examinando.</translation>
    </message>
    <message>
        <source>This is not the address of a page.</source>
        <translation>Esta no es la dirección de una página.</translation>
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
</context>
<context>
    <name>kestro::XscreensaverPanel</name>
    <message>
        <source>XScreenSaver is not installed: nothing starts Kestro by itself when you are away. The command &quot;kestro&quot; runs it at any time.</source>
        <translation>XScreenSaver no está instalado: nada inicia Kestro por sí solo cuando usted no está. La orden «kestro» lo ejecuta en cualquier momento.</translation>
    </message>
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
</context>
</TS>
