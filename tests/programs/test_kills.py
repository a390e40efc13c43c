"""A save that is killed leaves what was there or what was to be there, at whichever call it was killed."""

import os
import signal
import unittest

from saves import Resume, Settings, Site, Trailers, Xscreensaver

KILL_AT = os.environ["KILL_AT"]
MOST_CALLS = 500


class Kills(unittest.TestCase):
    def kill_at_each_call(self, kind):
        """Kills the save that follows on state 0 at its first call, its second, and so on until it comes to its end. The save
        after a killed one removes what that left."""
        save = kind()
        self.addCleanup(save.close)
        seen = []
        for call in range(1, MOST_CALLS):
            save.start()
            done = save.save(1, LD_PRELOAD=KILL_AT, KILL_BELOW=str(save.folder), KILL_AT=str(call))
            with self.subTest(kind=save.name, call=call):
                self.assertIn(done.returncode, (0, -signal.SIGKILL))
                seen.append(save.state())
                self.assertIn(seen[-1], (0, 1))
                if done.returncode:
                    self.check_next_save_cleans_up(save)
            if done.returncode == 0:
                break
        self.assertEqual(done.returncode, 0, "still calls left")
        self.assertGreater(len(seen), 3, "it was killed")
        self.assertEqual((seen[0], seen[-1]), (0, 1))
        self.assertEqual(seen, sorted(seen), "once it is saved it stays saved")

    def check_next_save_cleans_up(self, save):
        save.save(save.state() + 1).check_returncode()
        self.assertEqual(save.leftovers(), set())

    def test_settings_are_whole(self):
        self.kill_at_each_call(Settings)

    def test_the_resume_point_is_whole_and_of_one_movie(self):
        self.kill_at_each_call(Resume)

    def test_the_list_of_trailers_is_whole(self):
        self.kill_at_each_call(Trailers)

    def test_the_list_of_xscreensaver_and_its_backup_are_whole(self):
        self.kill_at_each_call(Xscreensaver)

    def test_the_record_of_a_site_and_its_pages_are_whole(self):
        self.kill_at_each_call(Site)


if __name__ == "__main__":
    unittest.main(verbosity=2)
