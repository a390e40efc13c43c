"""A keeper of movies that is killed leaves nothing but whole movies, at whichever call it was killed."""

import os
import signal
import unittest

from keptmovies import KeeperTest

KILL_AT = os.environ["KILL_AT"]
MOST_CALLS = 60


class Killed(KeeperTest):
    def test_nothing_but_whole_movies_is_left(self):
        entry = self.entries[:1]
        kills = 0
        for call in range(1, MOST_CALLS):
            killed = self.keep(entry, LD_PRELOAD=KILL_AT, KILL_BELOW=str(self.folder), KILL_AT=str(call))
            with self.subTest(call=call):
                self.assertIn(killed.returncode, (0, -signal.SIGKILL))
                self.assertCopiesAreWhole()
                self.keep(entry)
                self.assertEqual((len(self.copies()), self.parts()), (1, []))
                self.assertCopiesAreWhole()
            if killed.returncode == 0:
                break
            kills += 1
            for path in self.folder.iterdir():
                path.unlink()
        self.assertEqual(killed.returncode, 0, "still calls left")
        self.assertGreater(kills, 4)


if __name__ == "__main__":
    unittest.main()
