"""A display whose driver for OpenGL does not work, as after its upgrade and before the next start of the machine."""

import os
import unittest

from harness import RED, ProgramTest, movie, wait_until
from xserver import XServer

BROKEN = {"KESTRO_RENDERER": "opengl", "QT_XCB_GL_INTEGRATION": "xcb_glx", "LD_PRELOAD": os.environ["NO_GLX_DRIVER"]}


class BrokenDriver(ProgramTest):
    def setUp(self):
        super().setUp()
        self.server = XServer("320x240", with_opengl=True)
        self.addCleanup(self.server.close)
        self.home.play([movie("long-red", "red", seconds=60)], FullScreenMode="1")

    def test_movies_are_drawn_without_it(self):
        process = self.start_kestro(DISPLAY=self.server.display, **BROKEN)
        wait_until(lambda: process.poll() is not None or self.server.picture().is_near(160, 120, RED), "the movie")
        self.assertIsNone(process.poll())
        process.terminate()
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)
        self.assertEqual(errors.count("OpenGL cannot be used, the display has no driver for it: drawing in software."), 1, errors)

    def test_the_doctor_comes_to_its_end(self):
        environment = self.home.environment(DISPLAY=self.server.display, **BROKEN)
        self.assertIn("OpenGL cannot be used, the display has no driver for it", self.run_kestro("doctor", environment=environment).stdout)


if __name__ == "__main__":
    unittest.main()
