"""An include in src/ points into its own folder or to what stands below it; a foreign library is known to one folder."""

import posixpath
import re

import lint

PLATFORM = {
    "platform/base": set(),
    "platform/plist": {"platform/base"},
    "platform/network": {"platform/base"},
    "platform/display": {"platform/base"},
    "platform/movie": {"platform/base", "platform/display"},
    "platform/web": {"platform/base", "platform/network", "platform/display"},
    "platform/saver": {"platform/base", "platform/plist", "platform/display"},
    "platform/session": {"platform/base"},
}
BELOW_ENGINE = set(PLATFORM) | {"settings", "presentation"}
ALLOWED = PLATFORM | {
    "settings": {"platform/base", "platform/plist", "platform/display"},
    "presentation": set(PLATFORM),
    "trailers": BELOW_ENGINE,
    "widgets": set(PLATFORM) | {"settings", "presentation"},
    "config_ui": BELOW_ENGINE | {"widgets"},
    "trailers/panel": BELOW_ENGINE | {"trailers", "widgets"},
    "engine": BELOW_ENGINE,
    "module": BELOW_ENGINE | {"engine", "trailers"},
    "publish": {"platform/base", "platform/display", "platform/movie"},
    "launcher": set(),
    "idle": {"platform/base", "platform/session", "host/start"},
    "keep": {"platform/base", "platform/network", "platform/session", "platform/movie", "host/start"},
    "host/start": {"platform/base"},
    "host/xscreensaver": {"platform/base"},
    "host/publish": {"platform/base", "publish", "host/start"},
    "host": {
        "platform/base",
        "platform/plist",
        "platform/network",
        "platform/display",
        "platform/saver",
        "platform/session",
        "settings",
        "trailers",
        "host/start",
        "host/xscreensaver",
        "host/publish",
        "idle",
    },
    "host/doctor": BELOW_ENGINE | {"trailers", "host", "host/start", "host/xscreensaver", "idle", "keep"},
    "host/preferences": {"platform/base", "platform/session", "host/start", "host/xscreensaver", "idle"},
    "host/preferences/live": BELOW_ENGINE
    | {"trailers", "trailers/panel", "widgets", "config_ui", "host", "host/preferences"},
}

# The rooms of a folder: what the headers of each may include besides its own. Sources of one folder know each other.
VIEW = "platform/display/view"
SURFACE = "platform/display/surface"
ROOMS = {
    VIEW: set(),
    "platform/display/scene": {VIEW},
    SURFACE: {VIEW},
    SURFACE + "/image": {SURFACE},
    SURFACE + "/wayland": {SURFACE},
    SURFACE + "/x11": {VIEW, SURFACE},
    "platform/display/gl": {VIEW, "platform/display/scene"},
    "platform/display/desktop": {VIEW, SURFACE},
    "platform/display/desktop/x11": {SURFACE, SURFACE + "/x11"},
    "host/session": {"host/start"},
    "host/hacks": set(),
    "host/render": {"host/start", "host/session"},
    "host/commands": {"host/start", "host/session", "host/render", "host/hacks", "host/xscreensaver"},
}

# What a process that runs the saver must not load, and the folders of the program that shows its settings.
QT_WIDGETS = (
    r"QtWidgets/|Q(Abstract(Button|Item(Delegate|View)|ScrollArea|Slider|SpinBox)|Application|\w*Layout|\w*Widget|"
    r"\w*Dialog|\w*Dialog\w+|\w*Button\w*|Check\w+|\w*Combo\w+|\w*SpinBox|Frame|GroupBox|Header\w+|Label|\w*LineEdit|"
    r"(List|Table|Tree|Column)(View|Widget\w*)|Menu\w*|MessageBox|(Plain)?TextEdit|Progress\w+|\w*Style(?!Hints)\w*|"
    r"Scroll\w+|Slider|Splitter\w*|Size(Grip|Policy)|\w+Item(Delegate|View)|SpacerItem|SplashScreen|StatusBar|"
    r"SystemTrayIcon|\w*Tab(Bar|Widget)|Tool(Bar|Box|Tip)|Graphics\w+)$"
)
WIDGET_FOLDERS = ("widgets", "config_ui", "trailers/panel", "host/preferences", "host/preferences/live")

# The headers of each foreign library, and the folders that may include them.
FOREIGN = [
    (r"curl/", ("platform/network",)),
    (r"X11/|GL/|GLES\d/|EGL/|vulkan/", ("platform/display",)),
    # The program that waits for the person to be away has no windows, and loads nothing that makes them.
    (r"xcb/|wayland-", ("platform/display", "platform/session")),
    (r"QtDBus|QDBus", ("platform/session", "idle", "keep")),
    (r"linux/input|libudev|systemd/", ("platform/session",)),
    (r"Q(Svg|BackingStore|OpenGL|RasterWindow)|qpa/|QtGui/(private|qpa)/", ("platform/display",)),
    (r"Q(Window|Screen)\b", ("platform/display", *WIDGET_FOLDERS)),
    (r"mpv/|libav|libsw", ("platform/movie",)),
    (r"seccomp", ("platform/web",)),
    (r"pugi", ("platform/plist",)),
    (r"QtWebEngine|QWebEngine|QtQuick|QQuick|QQml|QtQml", ("platform/web",)),
    (QT_WIDGETS, WIDGET_FOLDERS),
]
# Other headers in angle brackets that lie in folders: those of the system and of Qt.
KNOWN_FOLDERS = r"(sys|linux|arpa|netinet|net|bits|Qt[A-Z]\w*)/"

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', re.M)


def folder_of(path):
    """The folder of the table that a path relative to src/ lies in; None for one outside all of them."""
    return max((folder for folder in ALLOWED if path.startswith(folder + "/")), key=len, default=None)


def check_own(own, path, included):
    below = folder_of(included)
    if ".." in included.split("/"):
        return f'"{included}" climbs out of its folder: name it from src/'
    if below is None:
        beside = posixpath.join(posixpath.dirname(path.removeprefix("src/")), included)
        return None if folder_of(beside) == own else f'"{included}" is in no folder of ours'
    if below != own and below not in ALLOWED[own]:
        return f'{own} may not include "{included}"'
    return None


def check_room(path, included):
    own, room = (max((room for room in ROOMS if f.startswith(room + "/")), key=len, default=None) for f in (path, included))
    if not path.endswith(".h") or None in (own, room) or folder_of(own + "/") != folder_of(room + "/"):
        return None
    if room == own or room in ROOMS[own]:
        return None
    return f'a header of {own} may not include "{included}"'


def check_foreign(own, header):
    for pattern, owners in FOREIGN:
        if re.match(pattern, header):
            return None if own in owners else f"<{header}> is for {', '.join(owners)} only"
    if "/" in header and not re.match(KNOWN_FOLDERS, header):
        return f"<{header}> is of a library that has no folder: add it to FOREIGN"
    return None


def check(path, text):
    own = folder_of(path.removeprefix("src/"))
    if own is None:
        return [(1, "lies in no folder of the table: add the folder to ALLOWED")]
    code = lint.blank(text, strings=False)
    findings = []
    for match in INCLUDE.finditer(code):
        quoted, angled = match.groups()
        if quoted:
            fault = check_own(own, path, quoted) or check_room(path.removeprefix("src/"), quoted)
        else:
            fault = check_foreign(own, angled)
        if fault:
            findings.append((lint.line_of(code, match.start()), fault))
    return findings


SAMPLES = [
    ("src/platform/display/view/View.h", '#include "platform/display/scene/Scene.h"', 1),
    ("src/platform/display/view/View.cpp", '#include "platform/display/scene/Scene.h"', 0),
    ("src/platform/display/scene/Scene.h", '#include "platform/display/view/View.h"', 0),
    ("src/platform/display/surface/Surface.h", '#include "platform/display/surface/x11/X11Canvas.h"', 1),
    ("src/host/session/HostedSaver.h", '#include "host/commands/Program.h"', 1),
    ("src/engine/MySaver.cpp", '#include "engine/MySaver.h"\n#include "settings/Settings.h"\n#include <QUrl>', 0),
    ("src/engine/MySaver.cpp", '#include "host/commands/Program.h"', 1),
    ("src/settings/Settings.h", '#include "engine/MySaver.h"', 1),
    ("src/trailers/TrailerList.h", '#include "engine/SignImage.h"', 1),
    ("src/engine/MySaver.cpp", '#include "trailers/TrailerCont.h"', 1),
    ("src/module/KestroPlugin.cpp", '#include "trailers/SharedTrailers.h"\n#include "engine/MySaver.h"', 0),
    ("src/module/KestroPlugin.cpp", '#include "host/commands/Program.h"', 1),
    ("src/publish/MovieReader.cpp", '#include "platform/movie/StillDecoder.h"', 0),
    ("src/publish/SitePages.cpp", '#include "trailers/PageParser.h"', 1),
    ("src/config_ui/ConfigSheet.cpp", '#  include "engine/MySaver.h"', 1),
    ("src/platform/base/Log.cpp", '#include "platform/plist/PropertyList.h"', 1),
    ("src/platform/movie/MpvMovie.cpp", "#include <mpv/client.h>\n#include <libavcodec/avcodec.h>", 0),
    ("src/engine/MySaver.cpp", "#include <mpv/client.h>", 1),
    ("src/host/render/TraceLine.cpp", '#include "platform/saver/SaverControl.h"', 0),
    ("src/host/render/TraceLine.cpp", '#include "engine/MySaver.h"', 1),
    ("src/host/commands/RunCommand.cpp", '#include "platform/movie/QTMovie.h"', 1),
    ("src/host/commands/PublishCommand.cpp", '#include "publish/Publisher.h"', 1),
    ("src/host/preferences/live/SaverPreview.cpp", '#include "engine/MySaver.h"', 1),
    ("src/host/commands/main.cpp", "#include <xcb/xcb.h>", 1),
    ("src/host/commands/main.cpp", "#include <QSvgRenderer>", 1),
    ("src/host/commands/main.cpp", "#include <seccomp.h>", 1),
    ("src/platform/web/helper/CallFilter.cpp", "#include <seccomp.h>", 0),
    ("src/settings/SettingsStore.cpp", "#include <mpv/client.h>", 1),
    ("src/settings/SettingsStore.cpp", "#include <pugixml.hpp>", 1),
    ("src/platform/plist/XmlDocument.h", "#include <pugixml.hpp>", 0),
    ("src/settings/SettingsStore.cpp", "#include <boost/any.hpp>", 1),
    ("src/platform/saver/SaverBundle.cpp", "#include <sys/stat.h>\n#include <QtPlugin>\n#include <QtGlobal>", 0),
    ("src/engine/MySaver.cpp", '// #include "host/commands/Program.h"', 0),
    ("src/engine/MySaver.cpp", '#include "../host/Program.h"', 1),
    ("src/engine/MySaver.cpp", '#include "MySaver.h"', 0),
    ("src/attic/Old.h", "", 1),
    ("src/trailers/panel/TrailerPanel.cpp", '#include "trailers/TrailerCont.h"\n#include <QTableView>', 0),
    ("src/trailers/TrailerCont.cpp", '#include "trailers/panel/TrailerPanel.h"', 1),
    ("src/trailers/TrailerCont.cpp", "#include <QTableView>", 1),
    ("src/widgets/MoviePreview.cpp", "#include <QScreen>", 0),
    ("src/engine/MySaver.cpp", "#include <QScreen>", 1),
    ("src/host/commands/main.cpp", "#include <QApplication>\n#include <QGuiApplication>\n#include <QStyleHints>", 1),
    ("src/engine/MySaver.cpp", "#include <QVBoxLayout>\n#include <QDialogButtonBox>\n#include <QLabel>", 3),
]

if __name__ == "__main__":
    lint.main(check, SAMPLES, lambda root: lint.files(root, lint.CPP, "src"))
