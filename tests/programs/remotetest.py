"""What the tests with movies on a server share."""

from harness import ProgramTest, movie
from movieserver import MovieServer
from specialmovies import streamed
from watching import Watch

FULL_SCREEN = {"FullScreenMode": "1", "PlayMode": "1"}
DEAD = ["/x/dead.mp4", "/y/dead.mp4", "/z/dead.mp4"]


class RemoteTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.server = MovieServer()
        self.addCleanup(self.server.close)
        self.short = [movie("short-red", "red", seconds=0.6), movie("short-green", "green", seconds=0.6)]

    def serve(self, path, file, answer=None):
        return self.server.serve(path, streamed(file), answer)

    def play(self, entries, *words, mode=FULL_SCREEN, **settings):
        self.home.play(entries, **mode, **settings)
        return Watch(self, *words)

    def dead(self, count):
        """URLs that the server knows nothing of, each in a folder of its own, as trailers are."""
        return [self.server.url(path) for path in DEAD[:count]]
