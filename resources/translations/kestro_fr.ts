<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en_US">
<context>
    <name>EntryText</name>
    <message>
        <source>Newest trailers</source>
        <translation>Dernières bandes-annonces</translation>
    </message>
    <message>
        <source>Left out: it does not say how many trailers of which width</source>
        <translation>Ignorée&#xa0;: elle ne dit pas combien de bandes-annonces ni de quelle largeur</translation>
    </message>
    <message>
        <source>Left out: a web page, no movie</source>
        <translation>Ignorée&#xa0;: une page web, pas un film</translation>
    </message>
    <message>
        <source>Cannot be opened: %1</source>
        <translation>Ouverture impossible&#xa0;: %1</translation>
    </message>
    <message>
        <source>Web content, %1</source>
        <translation>Contenu web, %1</translation>
    </message>
    <message>
        <source>%1: cannot be opened, %2</source>
        <translation>%1 : ouverture impossible, %2</translation>
    </message>
    <message>
        <source>A click on the sign looks again.</source>
        <translation>Un clic sur le signe vérifie de nouveau.</translation>
    </message>
    <message>
        <source>The newest trailer, %1 pixels wide</source>
        <translation>La bande-annonce la plus récente, %1 pixels de large</translation>
    </message>
    <message>
        <source>%1 newest trailers, each %2 pixels wide</source>
        <translation>Les %1 bandes-annonces les plus récentes, chacune de %2 pixels de large</translation>
    </message>
    <message>
        <source>All trailers, each %1 pixels wide</source>
        <translation>Toutes les bandes-annonces, chacune de %1 pixels de large</translation>
    </message>
    <message>
        <source>Left out: it names no folder of this machine</source>
        <translation>Omis : cela ne désigne aucun dossier de cette machine</translation>
    </message>
    <message>
        <source>Folder, %1</source>
        <translation>Dossier, %1</translation>
    </message>
    <message>
        <source>Folder without movies, %1</source>
        <translation>Dossier sans film, %1</translation>
    </message>
    <message>
        <source>Folder with one movie, %1</source>
        <translation>Dossier avec un film, %1</translation>
    </message>
    <message>
        <source>Folder with %L1 movies, %2</source>
        <translation>Dossier avec %L1 films, %2</translation>
    </message>
    <message>
        <source>List, %1</source>
        <translation>Liste, %1</translation>
    </message>
    <message>
        <source>List without movies, %1</source>
        <translation>Liste sans film, %1</translation>
    </message>
    <message>
        <source>List with one movie, %1</source>
        <translation>Liste avec un film, %1</translation>
    </message>
    <message>
        <source>List with %L1 movies, %2</source>
        <translation>Liste avec %L1 films, %2</translation>
    </message>
    <message>
        <source>Starred</source>
        <translation>Avec étoile</translation>
    </message>
    <message>
        <source>Plays by day</source>
        <translation>Lu le jour</translation>
    </message>
    <message>
        <source>Plays at night</source>
        <translation>Lu la nuit</translation>
    </message>
    <message>
        <source>Plays from %1 until %2</source>
        <translation>Lu de %1 à %2</translation>
    </message>
</context>
<context>
    <name>Kestro</name>
    <message>
        <source>You selected &apos;.slideSaver&apos;. 
You may need to restart &apos;System Preferences.app&apos; to take effect properly.</source>
        <translation>Vous avez sélectionné un «&#xa0;.slideSaver&#xa0;». 
Il peut être nécessaire de redémarrer «&#xa0;System Preferences.app&#xa0;» pour que cela prenne effet correctement.</translation>
    </message>
    <message>
        <source>Invalid URL string.</source>
        <translation>URL incorrecte.</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>Alerte</translation>
    </message>
    <message>
        <source>Failed to create movie.
Please try again.</source>
        <translation>Impossible d’ouvrir le film.
Veuillez réessayer.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Add Movie</source>
        <translation>Ajouter un film</translation>
    </message>
    <message>
        <source>No movie selected</source>
        <translation>Aucun film sélectionné</translation>
    </message>
    <message>
        <source>Add movies in the settings</source>
        <translation>Ajoutez des films dans les réglages</translation>
    </message>
    <message>
        <source>No movie could be loaded</source>
        <translation>Aucun film n’a pu être chargé</translation>
    </message>
    <message>
        <source>Check the playlist and the network</source>
        <translation>Vérifiez la liste de lecture et le réseau</translation>
    </message>
    <message>
        <source>The settings file could not be read. It was kept as %1.</source>
        <translation>Le fichier des réglages n’a pas pu être lu. Il a été conservé sous %1.</translation>
    </message>
    <message>
        <source>The settings could not be saved in %1. They are lost when this window closes.</source>
        <translation>Les réglages n’ont pas pu être enregistrés dans %1. Ils seront perdus à la fermeture de cette fenêtre.</translation>
    </message>
    <message>
        <source>Failed to save the movie as %1.
%2</source>
        <translation>Impossible d’enregistrer le film sous %1.
%2</translation>
    </message>
    <message>
        <source>The folder %1 cannot be shown.</source>
        <translation>Impossible d’afficher le dossier %1.</translation>
    </message>
    <message>
        <source>There are no movies in what was dropped.</source>
        <translation>Il n’y a aucun film dans ce qui a été déposé.</translation>
    </message>
    <message>
        <source>Looking for movies in what was dropped…</source>
        <translation>Recherche de films dans ce qui a été déposé…</translation>
    </message>
    <message>
        <source>The disk does not answer. Movies may be missing from what was dropped.</source>
        <translation>Le disque ne répond pas. Des films peuvent manquer dans ce qui a été déposé.</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Ajouter un dossier</translation>
    </message>
    <message>
        <source>Sound is off</source>
        <translation>Le son est désactivé</translation>
    </message>
    <message>
        <source>Volume: %1%</source>
        <translation>Volume : %1 %</translation>
    </message>
    <message>
        <source>There is no other movie</source>
        <translation>Il n’y a pas d’autre film</translation>
    </message>
    <message>
        <source>Not played any more (U takes that back)</source>
        <translation>Ne sera plus lu (U annule)</translation>
    </message>
    <message>
        <source>Nothing to take back</source>
        <translation>Rien à annuler</translation>
    </message>
    <message>
        <source>Played again from now on</source>
        <translation>Lu de nouveau à partir de maintenant</translation>
    </message>
</context>
<context>
    <name>LatestPanel</name>
    <message>
        <source>Latest Trailers</source>
        <translation>Dernières bandes-annonces</translation>
    </message>
    <message>
        <source>Adds an entry that always plays the newest trailers found.</source>
        <translation>Ajoute une entrée qui joue toujours les dernières bandes-annonces trouvées.</translation>
    </message>
    <message>
        <source>&amp;Number of trailers:</source>
        <translation>&amp;Nombre de bandes-annonces&#xa0;:</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Toutes</translation>
    </message>
    <message>
        <source>Frame &amp;width:</source>
        <translation>&amp;Largeur d’image&#xa0;:</translation>
    </message>
</context>
<context>
    <name>MoreOptions</name>
    <message>
        <source>&amp;Remember what was shown</source>
        <translation>&amp;Retenir ce qui a été montré</translation>
    </message>
    <message>
        <source>In random order no movie comes twice before all were seen.</source>
        <translation>Dans l’ordre aléatoire, aucun film ne revient avant que tous aient été vus.</translation>
    </message>
    <message>
        <source>C&amp;hange movies:</source>
        <translation>C&amp;hanger de film :</translation>
    </message>
    <message>
        <source>A longer movie gives way to the next one then.</source>
        <translation>Un film plus long laisse alors la place au suivant.</translation>
    </message>
    <message>
        <source>At their end</source>
        <translation>À la fin</translation>
    </message>
    <message>
        <source>Begin any&amp;where in a movie</source>
        <translation>Comm&amp;encer n’importe où</translation>
    </message>
    <message>
        <source>And not at its beginning, so that long ones are seen whole in time.</source>
        <translation>Et non au début : les longs films sont ainsi vus en entier avec le temps.</translation>
    </message>
    <message>
        <source>&amp;Dissolve:</source>
        <translation>Fond&amp;u :</translation>
    </message>
    <message>
        <source>One movie becomes the next one so slowly.</source>
        <translation>Un film devient le suivant aussi lentement.</translation>
    </message>
    <message>
        <source>&amp;Keep movies of sites:</source>
        <translation>&amp;Garder les films des sites :</translation>
    </message>
    <message>
        <source>They play from the disk the next time; the newest are fetched ahead.</source>
        <translation>Ils sont lus depuis le disque la fois suivante ; les plus récents sont chargés d’avance.</translation>
    </message>
    <message>
        <source>L&amp;atitude:</source>
        <translation>L&amp;atitude :</translation>
    </message>
    <message>
        <source>In degrees, less than nought in the south. Tells when it is day, for what plays by day.</source>
        <translation>En degrés, négative au sud. Dit quand il fait jour, pour ce qui passe le jour.</translation>
    </message>
    <message>
        <source>L&amp;ongitude:</source>
        <translation>L&amp;ongitude :</translation>
    </message>
    <message>
        <source>In degrees, less than nought in the west. Without both day is from 7 to 19.</source>
        <translation>En degrés, négative à l’ouest. Sans les deux, le jour va de 7 à 19 heures.</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Films</translation>
    </message>
    <message>
        <source>On the Picture</source>
        <translation>Sur l’image</translation>
    </message>
    <message>
        <source>Show the &amp;title</source>
        <translation>Montrer le &amp;titre</translation>
    </message>
    <message>
        <source>In a corner that changes, with the folder or the site it is from.</source>
        <translation>Dans un coin qui change, avec le dossier ou le site d’où il vient.</translation>
    </message>
    <message>
        <source>Show the ti&amp;me</source>
        <translation>&amp;Montrer l’heure</translation>
    </message>
    <message>
        <source>As the clock of this desktop has it.</source>
        <translation>Comme la donne l’horloge de ce bureau.</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Commande</translation>
    </message>
    <message>
        <source>Ke&amp;ys for the movie</source>
        <translation>Tou&amp;ches pour le film</translation>
    </message>
    <message>
        <source>Arrows change movie and volume, i shows the title, d never plays a movie again, u takes that back.</source>
        <translation>Les flèches changent le film et le volume, i montre le titre, d ne joue plus jamais un film, u revient là-dessus.</translation>
    </message>
    <message>
        <source>&amp;Programs may control it</source>
        <translation>Des &amp;programmes peuvent le commander</translation>
    </message>
    <message>
        <source>The desktop&apos;s media controls, and &quot;kestro next&quot; and its like.</source>
        <translation>Les commandes multimédia du bureau, et « kestro next » et semblables.</translation>
    </message>
    <message>
        <source>Where You Are</source>
        <translation>Où vous êtes</translation>
    </message>
    <message>
        <source>not known</source>
        <comment>degrees of latitude or longitude</comment>
        <translation>inconnue</translation>
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
        <translation>Aucun</translation>
    </message>
    <message>
        <source>None</source>
        <comment>no movie is kept</comment>
        <translation>Rien</translation>
    </message>
</context>
<context>
    <name>MovieFault</name>
    <message>
        <source>no such file</source>
        <translation>fichier inexistant</translation>
    </message>
    <message>
        <source>not a file</source>
        <translation>pas un fichier</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>lecture refusée</translation>
    </message>
    <message>
        <source>empty file</source>
        <translation>fichier vide</translation>
    </message>
    <message>
        <source>not a kind of file that holds movies</source>
        <translation>ce type de fichier ne contient pas de films</translation>
    </message>
    <message>
        <source>no moving picture in it</source>
        <translation>aucune image animée</translation>
    </message>
    <message>
        <source>no decoder for %1</source>
        <translation>pas de décodeur pour %1</translation>
    </message>
    <message>
        <source>too large: %1</source>
        <translation>trop grand : %1</translation>
    </message>
    <message>
        <source>damaged, or no movie</source>
        <translation>endommagé, ou ce n’est pas un film</translation>
    </message>
    <message>
        <source>no answer in time</source>
        <translation>pas de réponse à temps</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>le serveur est injoignable</translation>
    </message>
    <message>
        <source>the server does not have it</source>
        <translation>absent du serveur</translation>
    </message>
    <message>
        <source>the server refuses it</source>
        <translation>le serveur refuse de le donner</translation>
    </message>
    <message>
        <source>movies are played from files, http and https only</source>
        <translation>les films ne sont lus que depuis des fichiers, http et https</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>mémoire insuffisante</translation>
    </message>
</context>
<context>
    <name>SSConfig</name>
    <message>
        <source>Screen Saver Options</source>
        <translation>Options de l’économiseur d’écran</translation>
    </message>
    <message>
        <source>&amp;Playlist</source>
        <translation>&amp;Liste de lecture</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Liste de lecture</translation>
    </message>
    <message>
        <source>The movies that play, from the first to the last</source>
        <translation>Les films joués, du premier au dernier</translation>
    </message>
    <message>
        <source>Add &amp;Movie…</source>
        <translation>Ajouter un &amp;film…</translation>
    </message>
    <message>
        <source>Adds movie files</source>
        <translation>Ajoute des fichiers de film</translation>
    </message>
    <message>
        <source>Add &amp;URL…</source>
        <translation>Ajouter une &amp;URL…</translation>
    </message>
    <message>
        <source>Adds a movie on a server, by its address</source>
        <translation>Ajoute un film d’un serveur par son adresse</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>Takes the selected movies out of the playlist</source>
        <translation>Retire les films sélectionnés de la liste de lecture</translation>
    </message>
    <message>
        <source>&amp;Trailers…</source>
        <translation>&amp;Bandes-annonces…</translation>
    </message>
    <message>
        <source>Browses the trailers that were found, and adds them</source>
        <translation>Parcourt les bandes-annonces trouvées et les ajoute</translation>
    </message>
    <message>
        <source>Th&amp;eme Movies…</source>
        <translation>Films de t&amp;hème…</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Play &amp;sound</source>
        <translation>Activer le s&amp;on</translation>
    </message>
    <message>
        <source>The first monitor plays the sound of its movies</source>
        <translation>Le premier moniteur joue le son de ses films</translation>
    </message>
    <message>
        <source>Play in &amp;random order</source>
        <translation>Ordre &amp;aléatoire</translation>
    </message>
    <message>
        <source>Each movie plays once before any plays again</source>
        <translation>Chaque film est joué une fois avant toute répétition</translation>
    </message>
    <message>
        <source>Continue where the &amp;last run stopped</source>
        <translation>&amp;Reprendre là où la lecture s’est arrêtée</translation>
    </message>
    <message>
        <source>Starts with the movie, and at the place, where it was stopped</source>
        <translation>Commence par le film et à l’endroit où la lecture s’est arrêtée</translation>
    </message>
    <message>
        <source>Play &amp;back and forth</source>
        <translation>Lire en a&amp;vant puis en arrière</translation>
    </message>
    <message>
        <source>Plays a playlist of one movie forwards, then backwards</source>
        <translation>Joue une liste d’un seul film en avant, puis en arrière</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>&amp;Full screen</source>
        <translation>&amp;Plein écran</translation>
    </message>
    <message>
        <source>Movies fill the screen; otherwise they move about in a smaller size</source>
        <translation>Les films remplissent l’écran&#xa0;; sinon, ils s’y déplacent en plus petit</translation>
    </message>
    <message>
        <source>F&amp;it</source>
        <translation>A&amp;juster</translation>
    </message>
    <message>
        <source>As large as the whole picture fits on the screen</source>
        <translation>Aussi grand que possible, l’image entière tenant à l’écran</translation>
    </message>
    <message>
        <source>Stretc&amp;h</source>
        <translation>É&amp;tirer</translation>
    </message>
    <message>
        <source>All over the screen, whatever the shape of the picture</source>
        <translation>Sur tout l’écran, quelle que soit la forme de l’image</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>&amp;Zoomer</translation>
    </message>
    <message>
        <source>Large enough to cover the screen; what lies outside is cut off</source>
        <translation>Assez grand pour couvrir l’écran&#xa0;; ce qui dépasse est coupé</translation>
    </message>
    <message>
        <source>Smaller Than the Screen</source>
        <translation>Plus petit que l’écran</translation>
    </message>
    <message>
        <source>Movement:</source>
        <translation>Mouvement&#xa0;:</translation>
    </message>
    <message>
        <source>Fl&amp;y</source>
        <translation>Chan&amp;ger de place</translation>
    </message>
    <message>
        <source>The movie stands still, and now and then goes to another place</source>
        <translation>Le film reste immobile et change parfois de place</translation>
    </message>
    <message>
        <source>Bou&amp;nce</source>
        <translation>Rebon&amp;dir</translation>
    </message>
    <message>
        <source>The movie drifts about and bounces off the edges of the screen</source>
        <translation>Le film dérive et rebondit sur les bords de l’écran</translation>
    </message>
    <message>
        <source>New place:</source>
        <translation>Position&#xa0;:</translation>
    </message>
    <message>
        <source>E&amp;very</source>
        <translation>Toutes l&amp;es</translation>
    </message>
    <message>
        <source>The movie goes to another place after so many seconds</source>
        <translation>Le film change de place au bout de ce nombre de secondes</translation>
    </message>
    <message>
        <source>Seconds until the movie goes to another place</source>
        <translation>Secondes avant que le film change de place</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>secondes</translation>
    </message>
    <message>
        <source>&amp;When the movie ends</source>
        <translation>À la fi&amp;n du film</translation>
    </message>
    <message>
        <source>The movie goes to another place at its end</source>
        <translation>Le film change de place à la fin</translation>
    </message>
    <message>
        <source>Sc&amp;ale:</source>
        <translation>É&amp;chelle&#xa0;:</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Échelle</translation>
    </message>
    <message>
        <source>Size of the movie, 1 for its own</source>
        <translation>Taille du film, 1 pour la sienne</translation>
    </message>
    <message>
        <source>Size of the movie; 1 is its own</source>
        <translation>Taille du film&#xa0;; 1 est la sienne</translation>
    </message>
    <message>
        <source>Scale as a number</source>
        <translation>Échelle en chiffres</translation>
    </message>
    <message>
        <source>Bac&amp;kground:</source>
        <translation>Arr&amp;ière-plan&#xa0;:</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Arrière-plan</translation>
    </message>
    <message>
        <source>The screen saver that runs behind the movies</source>
        <translation>L’économiseur d’écran qui tourne derrière les films</translation>
    </message>
    <message>
        <source>Leave fadin&amp;g pictures behind</source>
        <translation>Laisser des i&amp;mages qui s’estompent</translation>
    </message>
    <message>
        <source>Where a movie was, its picture stays behind and fades out</source>
        <translation>Là où était un film, son image reste et s’estompe</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Moves the selected movie up (Alt+Up)</source>
        <translation>Monte le film sélectionné (Alt+Haut)</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Descendre</translation>
    </message>
    <message>
        <source>Moves the selected movie down (Alt+Down)</source>
        <translation>Descend le film sélectionné (Alt+Bas)</translation>
    </message>
    <message>
        <source>Browses the background movies that come with Kestro</source>
        <translation>Parcourt les films d’arrière-plan fournis avec Kestro</translation>
    </message>
    <message>
        <source>Add Folder…</source>
        <translation>Ajouter un dossier…</translation>
    </message>
    <message>
        <source>Adds a folder: the movies in it, and those that come into it</source>
        <translation>Ajoute un dossier : les films qu&apos;il contient et ceux qui y arrivent</translation>
    </message>
</context>
<context>
    <name>ThemePanel</name>
    <message>
        <source>Theme Movies</source>
        <translation>Films de thème</translation>
    </message>
    <message>
        <source>T&amp;heme movies. Those in red are recommended as backgrounds.</source>
        <translation>Films de t&amp;hème. Ceux en rouge sont recommandés comme arrière-plan.</translation>
    </message>
    <message>
        <source>Theme movies</source>
        <translation>Films de thème</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Lire</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>A&amp;rrêter</translation>
    </message>
</context>
<context>
    <name>TrailerCont</name>
    <message>
        <source>Trailers</source>
        <translation>Bandes-annonces</translation>
    </message>
    <message>
        <source>Site &amp;address:</source>
        <translation>&amp;Adresse du site&#xa0;:</translation>
    </message>
    <message>
        <source>The page of a trailer site that a scan begins with</source>
        <translation>La page d’un site de bandes-annonces par laquelle l’analyse commence</translation>
    </message>
    <message>
        <source>Looks for trailers on the site, or stops looking</source>
        <translation>Cherche des bandes-annonces sur le site, ou arrête la recherche</translation>
    </message>
    <message>
        <source>Trailers found</source>
        <translation>Bandes-annonces trouvées</translation>
    </message>
    <message>
        <source>Selected trailers, and all trailers</source>
        <translation>Bandes-annonces sélectionnées, et toutes</translation>
    </message>
    <message>
        <source>Scanning</source>
        <translation>Analyse en cours</translation>
    </message>
    <message>
        <source>&amp;Find:</source>
        <translation>&amp;Rechercher&#xa0;:</translation>
    </message>
    <message>
        <source>Return selects the next trailer whose address contains this text</source>
        <translation>Entrée sélectionne la bande-annonce suivante dont l’adresse contient ce texte</translation>
    </message>
    <message>
        <source>Forgets all trailers and all pages that were read</source>
        <translation>Oublie toutes les bandes-annonces et toutes les pages lues</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>&amp;Vider la liste</translation>
    </message>
    <message>
        <source>Plays the selected trailer in a window of its own</source>
        <translation>Joue la bande-annonce sélectionnée dans sa propre fenêtre</translation>
    </message>
    <message>
        <source>&amp;Preview</source>
        <translation>A&amp;perçu</translation>
    </message>
    <message>
        <source>Saves the movie file of the selected trailer</source>
        <translation>Enregistre le fichier du film de la bande-annonce sélectionnée</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Enregistrer…</translation>
    </message>
    <message>
        <source>Adds an entry to the playlist that stands for the newest trailers</source>
        <translation>Ajoute à la liste de lecture une entrée qui représente les dernières bandes-annonces</translation>
    </message>
    <message>
        <source>Add &amp;Latest…</source>
        <translation>Ajouter les &amp;dernières…</translation>
    </message>
    <message>
        <source>Adds the selected trailers to the playlist</source>
        <translation>Ajoute les bandes-annonces sélectionnées à la liste de lecture</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>A&amp;jouter</translation>
    </message>
    <message>
        <source>Trailers selected:</source>
        <translation>Bandes-annonces sélectionnées :</translation>
    </message>
</context>
<context>
    <name>URLPanel</name>
    <message>
        <source>Add URL</source>
        <translation>Ajouter une URL</translation>
    </message>
    <message>
        <source>&amp;Address of a movie, or of Flash content:</source>
        <translation>&amp;Adresse d’un film ou d’un contenu Flash&#xa0;:</translation>
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
        <translation>secondes : sans cesse</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
</context>
<context>
    <name>kestro::DoctorWindow</name>
    <message>
        <source>C&amp;opy</source>
        <translation>C&amp;opier</translation>
    </message>
    <message>
        <source>Something Wrong?</source>
        <translation>Un problème ?</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>Ce qui a été trouvé</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Looking…</source>
        <translation>Vérification…</translation>
    </message>
    <message>
        <source>Cannot start %1: %2</source>
        <translation>Impossible de démarrer %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Nothing could be found out.</source>
        <translation>Rien n’a pu être établi.</translation>
    </message>
</context>
<context>
    <name>kestro::HoursPanel</name>
    <message>
        <source>Play Between</source>
        <translation>Lire entre</translation>
    </message>
    <message>
        <source>&amp;From:</source>
        <translation>&amp;De :</translation>
    </message>
    <message>
        <source>&amp;Until:</source>
        <translation>&amp;Jusqu’à :</translation>
    </message>
</context>
<context>
    <name>kestro::IdlePanel</name>
    <message>
        <source>&amp;Start by itself when away for</source>
        <translation>&amp;Démarrer seul après absence de</translation>
    </message>
    <message>
        <source> min</source>
        <comment>minutes, after their number</comment>
        <translation> min</translation>
    </message>
    <message>
        <source>Minutes until the saver starts</source>
        <translation>Minutes avant le démarrage de l&apos;économiseur</translation>
    </message>
    <message>
        <source>Nothing starts the saver by itself now.</source>
        <translation>Rien ne démarre l&apos;économiseur tout seul pour le moment.</translation>
    </message>
    <message>
        <source>never</source>
        <comment>black after so many minutes, or never</comment>
        <translation>jamais</translation>
    </message>
    <message>
        <source>Minutes until the saver is black</source>
        <translation>Minutes avant que l’économiseur devienne noir</translation>
    </message>
    <message>
        <source>From then on nothing plays, and the displays can sleep</source>
        <translation>À partir de là plus rien n’est lu, et les écrans peuvent s’éteindre</translation>
    </message>
    <message>
        <source>&amp;black after</source>
        <comment>so many minutes, or never</comment>
        <translation>&amp;noir après</translation>
    </message>
</context>
<context>
    <name>kestro::IdleWords</name>
    <message>
        <source>Now: %1 looks after this session.</source>
        <translation>Maintenant : %1 s’occupe de cette session.</translation>
    </message>
    <message>
        <source>Now: the saver is shown.</source>
        <translation>Maintenant : l’économiseur est affiché.</translation>
    </message>
    <message>
        <source>Now kept from starting: %1.</source>
        <translation>Ne démarre pas pour le moment : %1.</translation>
    </message>
    <message>
        <source>The saver ended unexpectedly the last time.</source>
        <translation>L’économiseur s’est arrêté de façon inattendue la dernière fois.</translation>
    </message>
    <message>
        <source>Now: waiting until you are away.</source>
        <translation>Maintenant : attend que vous soyez absent.</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>what keeps the saver from starting, and who</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>a program asks for it</source>
        <translation>un programme le demande</translation>
    </message>
    <message>
        <source>the session is locked</source>
        <translation>la session est verrouillée</translation>
    </message>
    <message>
        <source>the machine goes to sleep</source>
        <translation>la machine se met en veille</translation>
    </message>
    <message>
        <source>the lid is closed</source>
        <translation>le capot est fermé</translation>
    </message>
    <message>
        <source>power is to be saved</source>
        <translation>il faut économiser l’énergie</translation>
    </message>
    <message>
        <source>the microphone is in use</source>
        <translation>le microphone est utilisé</translation>
    </message>
    <message>
        <source>the camera is in use</source>
        <translation>la caméra est utilisée</translation>
    </message>
    <message>
        <source>a game pad is in use</source>
        <translation>une manette est utilisée</translation>
    </message>
    <message>
        <source>a full-screen window plays sound</source>
        <translation>une fenêtre en plein écran émet du son</translation>
    </message>
</context>
<context>
    <name>kestro::MoreWindow</name>
    <message>
        <source>More</source>
        <translation>Plus</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
</context>
<context>
    <name>kestro::PanelWindow</name>
    <message>
        <source>Sort by &amp;URL</source>
        <translation>Trier par &amp;URL</translation>
    </message>
    <message>
        <source>Sort by D&amp;ate</source>
        <translation>Trier par da&amp;te</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Analyser</translation>
    </message>
    <message>
        <source>Cl&amp;ose</source>
        <translation>&amp;Fermer</translation>
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
        <translation>Lecture</translation>
    </message>
</context>
<context>
    <name>kestro::PlaylistMenu</name>
    <message>
        <source>&amp;Open Folder</source>
        <translation>&amp;Ouvrir le dossier</translation>
    </message>
    <message>
        <source>&amp;Look Again</source>
        <translation>&amp;Vérifier de nouveau</translation>
    </message>
    <message>
        <source>&amp;Star</source>
        <translation>Étoi&amp;le</translation>
    </message>
    <message>
        <source>&amp;Plays</source>
        <translation>Le&amp;cture</translation>
    </message>
    <message>
        <source>&amp;Always</source>
        <translation>&amp;Toujours</translation>
    </message>
    <message>
        <source>By &amp;Day</source>
        <translation>Le &amp;jour</translation>
    </message>
    <message>
        <source>At &amp;Night</source>
        <translation>La &amp;nuit</translation>
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
        <translation>Ajoutez des films avec les boutons ci-dessous, ou déposez ici des fichiers et des dossiers.</translation>
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
        <translation>&amp;Options…</translation>
    </message>
    <message>
        <source>&amp;Try It</source>
        <translation>&amp;Essayer</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Kestro Settings</source>
        <translation>Réglages de Kestro</translation>
    </message>
    <message>
        <source>The screen saver cannot be loaded.</source>
        <translation>L’économiseur d’écran ne peut pas être chargé.</translation>
    </message>
    <message>
        <source>Something &amp;Wrong?</source>
        <translation>Un &amp;problème ?</translation>
    </message>
    <message>
        <source>&amp;More…</source>
        <translation>Pl&amp;us…</translation>
    </message>
</context>
<context>
    <name>kestro::PreviewWindow</name>
    <message>
        <source>Movie Trailer</source>
        <translation>Bande-annonce</translation>
    </message>
</context>
<context>
    <name>kestro::RQTableViewRowMove</name>
    <message>
        <source>Rows are moved by dragging with Alt held, or with Alt+Up and Alt+Down.</source>
        <translation>Les lignes se déplacent en les faisant glisser avec Alt enfoncée, ou avec Alt+Haut et Alt+Bas.</translation>
    </message>
    <message>
        <source>Rows are moved by dragging, or with Alt+Up and Alt+Down.</source>
        <translation>Les lignes se déplacent en les faisant glisser, ou avec Alt+Haut et Alt+Bas.</translation>
    </message>
</context>
<context>
    <name>kestro::SaveTrailer</name>
    <message>
        <source>%1 already exists.
Replace it?</source>
        <translation>%1 existe déjà.
Le remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>Save Trailer</source>
        <translation>Enregistrer la bande-annonce</translation>
    </message>
</context>
<context>
    <name>kestro::SaverPreview</name>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
</context>
<context>
    <name>kestro::SaverRun</name>
    <message>
        <source>The saver ended unexpectedly.</source>
        <translation>L’économiseur s’est arrêté de façon inattendue.</translation>
    </message>
    <message>
        <source>Cannot start %1: %2</source>
        <translation>Impossible de démarrer %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>The saver could not run.</source>
        <translation>L’économiseur n’a pas pu s’exécuter.</translation>
    </message>
</context>
<context>
    <name>kestro::ScanEndText</name>
    <message>
        <source>Scan finished. Pages read: %1</source>
        <translation>Analyse terminée. Pages lues&#xa0;: %1</translation>
    </message>
    <message>
        <source>Scan stopped. Pages read: %1</source>
        <translation>Analyse arrêtée. Pages lues&#xa0;: %1</translation>
    </message>
    <message>
        <source>Scan ended: the site has more than fits. Pages read: %1</source>
        <translation>Analyse terminée&#xa0;: le site contient plus que ce qui peut être gardé. Pages lues&#xa0;: %1</translation>
    </message>
    <message>
        <source>The page at this address cannot be read.</source>
        <translation>La page à cette adresse ne peut pas être lue.</translation>
    </message>
    <message>
        <source>This is not the address of a page.</source>
        <translation>Ce n’est pas l’adresse d’une page.</translation>
    </message>
    <message>
        <source>The site is being scanned already.</source>
        <translation>Le site est déjà en cours d’analyse.</translation>
    </message>
    <message>
        <source>The site&apos;s host is set to %1, but this page is on %2: no link is followed.</source>
        <translation>L’hôte du site est défini sur %1, mais cette page se trouve sur %2 : aucun lien n’est suivi.</translation>
    </message>
    <message>
        <source>A second scan at the same time cannot be kept away: %1</source>
        <translation>Une seconde analyse simultanée ne peut pas être empêchée : %1</translation>
    </message>
    <message>
        <source>Pages refused: %1. A start page without &lt;html&gt; has pages read as ASCII, and these hold other letters.</source>
        <translation>Pages refusées : %1. Une page de départ sans &lt;html&gt; fait lire les pages en ASCII, et celles-ci contiennent d’autres lettres.</translation>
    </message>
    <message>
        <source>The pages that this address leads to were all read before; Clear List forgets them, and a scan reads them again.</source>
        <translation>Les pages vers lesquelles mène cette adresse ont toutes déjà été lues ; « Vider la liste » les oublie, et une analyse les lit à nouveau.</translation>
    </message>
</context>
<context>
    <name>kestro::ScreensPanel</name>
    <message>
        <source>A movie on each</source>
        <translation>Un film sur chacun</translation>
    </message>
    <message>
        <source>The same movie on all</source>
        <translation>Le même film sur tous</translation>
    </message>
    <message>
        <source>One movie across all</source>
        <translation>Un seul film sur l’ensemble</translation>
    </message>
    <message>
        <source>Monitors that show the saver</source>
        <translation>Moniteurs qui montrent l’économiseur</translation>
    </message>
    <message>
        <source>The others are black meanwhile</source>
        <translation>Les autres restent noirs pendant ce temps</translation>
    </message>
    <message>
        <source>Scree&amp;ns:</source>
        <comment>how they share the saver</comment>
        <translation>É&amp;crans :</translation>
    </message>
    <message>
        <source>All monitors</source>
        <translation>Tous les moniteurs</translation>
    </message>
    <message>
        <source>The first monitor alone</source>
        <translation>Le premier moniteur seulement</translation>
    </message>
    <message>
        <source>%1 alone</source>
        <translation>%1 seulement</translation>
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
        <translation>Pour commencer :</translation>
    </message>
    <message>
        <source>Your videos</source>
        <translation>Vos vidéos</translation>
    </message>
    <message>
        <source>Add Your Videos</source>
        <translation>Ajouter vos vidéos</translation>
    </message>
    <message>
        <source>Theme movies</source>
        <translation>Films de thème</translation>
    </message>
    <message>
        <source>Add the Theme Movies</source>
        <translation>Ajouter les films de thème</translation>
    </message>
    <message>
        <source>Intro</source>
        <translation>Introduction</translation>
    </message>
    <message>
        <source>Add the Intro</source>
        <translation>Ajouter l’introduction</translation>
    </message>
    <message>
        <source>The movie that introduces Kestro</source>
        <translation>Le film qui présente Kestro</translation>
    </message>
    <message>
        <source>Backgrounds that come with Kestro: %1</source>
        <translation>Arrière-plans fournis avec Kestro : %1</translation>
    </message>
    <message>
        <source>Movies found: %1</source>
        <translation>Films trouvés : %1</translation>
    </message>
</context>
<context>
    <name>kestro::StarterRow</name>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
</context>
<context>
    <name>kestro::ThemePanel</name>
    <message>
        <source>Preview of the selected movie</source>
        <translation>Aperçu du film sélectionné</translation>
    </message>
    <message>
        <source>No theme movies were found.</source>
        <translation>Aucun film de thème n’a été trouvé.</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>A&amp;jouter</translation>
    </message>
</context>
<context>
    <name>kestro::ThemeTableModel</name>
    <message>
        <source>Recommended</source>
        <translation>Recommandé</translation>
    </message>
    <message>
        <source>Not recommended</source>
        <translation>Non recommandé</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Thème</translation>
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
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Saving %1…</source>
        <translation>Enregistrement de %1…</translation>
    </message>
    <message>
        <source>Save Trailer</source>
        <translation>Enregistrer la bande-annonce</translation>
    </message>
</context>
<context>
    <name>kestro::TrailerTableModel</name>
    <message>
        <source>SEL</source>
        <translation>SÉL.</translation>
    </message>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>SIZE</source>
        <translation>TAILLE</translation>
    </message>
    <message>
        <source>DATE</source>
        <translation>DATE</translation>
    </message>
    <message>
        <source>A mark of your own: it is kept with the trailer, and changes nothing else</source>
        <translation>Une marque personnelle : elle est conservée avec la bande-annonce et ne change rien d’autre</translation>
    </message>
    <message>
        <source>Ticked</source>
        <translation>Coché</translation>
    </message>
    <message>
        <source>Not ticked</source>
        <translation>Non coché</translation>
    </message>
</context>
<context>
    <name>kestro::XscreensaverPanel</name>
    <message>
        <source>Kestro is in your list of XScreenSaver&apos;s savers.</source>
        <translation>Kestro figure dans votre liste d’économiseurs de XScreenSaver.</translation>
    </message>
    <message>
        <source>Kestro is not in your list of XScreenSaver&apos;s savers.</source>
        <translation>Kestro ne figure pas dans votre liste d’économiseurs de XScreenSaver.</translation>
    </message>
    <message>
        <source>&amp;Remove from XScreenSaver</source>
        <translation>&amp;Retirer de XScreenSaver</translation>
    </message>
    <message>
        <source>&amp;Add to XScreenSaver</source>
        <translation>&amp;Ajouter à XScreenSaver</translation>
    </message>
    <message>
        <source>XScreenSaver is not installed. The command &quot;kestro&quot; runs the saver at any time.</source>
        <translation>XScreenSaver n’est pas installé. La commande « kestro » lance l’économiseur à tout moment.</translation>
    </message>
</context>
</TS>
