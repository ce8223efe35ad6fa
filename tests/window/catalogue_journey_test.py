"""The badge, the wheel and the page of tweaks, in the window and against the real server."""

import os
import plistlib
import sys
import tempfile
import unittest

import desktop
import picture
import program

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from catalogue import HOST, Catalogue  # noqa: E402

BASE = "/tweaks/tweaks.php?id=me.orlanvey.quietdial"
# As many boxes beside each other as fit, and a band under them: at 320 points three rows of boxes,
# at 414 two.
BOXES = """<!DOCTYPE html><meta name="viewport" content="width=device-width">
<style>body{margin:0;background:#fff}div{float:left;width:100px;height:100px;background:#0a0}
p{clear:both;margin:0;height:20px;background:#00f}</style>
""" + "<div></div>" * 7 + "<p></p>"
HEIGHTS = {320: 320, 414: 220}
GREEN, BLUE = (0, 170, 0), (0, 0, 255)
BAR = 44
# The gap above the first group of rows.
GAP = 35


class CatalogueJourney(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name
        self.boxes = os.path.join(self.root, "boxes.html")
        with open(self.boxes, "w", encoding="utf-8") as file:
            file.write(BOXES)

    def serve(self, *tweaks, **options):
        server = Catalogue(*tweaks, **options)
        self.addCleanup(server.end)
        return server

    def start(self, server, *arguments):
        application = desktop.Application(
            self.root, "--pane", "QDPreferencesListController", "--map-host", server.mapping, *arguments)
        self.addCleanup(application.close)
        return application

    def press(self, application, role, name):
        application.press(role, name)

    def page_place(self, application):
        return application.place(application.wait_for("document web", "Web page"))

    def settings(self):
        try:
            with open(os.path.join(self.root, program.SETTINGS_FILE), "rb") as file:
                return plistlib.load(file)
        except FileNotFoundError:
            return {}

    def test_from_the_badge_to_the_page_and_back(self):
        server = self.serve("com.b", "com.a", arguments=["--page-fault", "late=1"])
        application = self.start(server)
        self.press(application, "push button", "More Tweaks, 2")
        application.wait_for("animation", "Loading")
        self.assertNotIn("seen_tweaks", self.settings())
        application.wait_for("document web", "Web page")
        self.assertIsNone(application.find("animation", "Loading"))
        desktop.wait_for(lambda: self.settings() == {"seen_tweaks": ["com.b", "com.a"]},
                         "the tweaks to count as seen")
        page = (f"GET {BASE}&unseen=com.b%7Ccom.a HTTP/1.1", HOST)
        desktop.wait_for(lambda: server.requests() == [(f"GET {BASE}&list=1 HTTP/1.1", HOST), page, page],
                         "two loads of the page and nothing else")
        self.press(application, "push button", "Back, QuietDial")
        desktop.wait_for(lambda: (row := application.find("push button", "More Tweaks")) and row.name == "More Tweaks",
                         "the badge to go")
        server.set_tweaks("com.a", "com.c", "com.b")
        self.press(application, "push button", "Hide Caller ID Prefix")
        application.wait_for("radio button", "Algeria")
        self.press(application, "push button", "Back, QuietDial")
        application.wait_for("push button", "More Tweaks, 1")

    def test_the_row_is_as_high_as_the_page(self):
        for width, height in HEIGHTS.items():
            with self.subTest(width):
                server = self.serve("com.a", arguments=["--page", self.boxes])
                application = self.start(server, "--size", f"{width}x600")
                self.press(application, "push button", "More Tweaks, 1")
                desktop.wait_for(
                    lambda: self.page_place(application)[2:] == (width, height),
                    f"a page {width} wide and {height} high")
                application.close()
                os.remove(os.path.join(self.root, program.SETTINGS_FILE))

    def test_the_picture_shows_the_whole_page(self):
        for width, height in HEIGHTS.items():
            with self.subTest(width):
                server = self.serve("com.a", arguments=["--page", self.boxes])
                file = os.path.join(self.root, f"{width}.png")
                result = program.run("--root", self.root, "--pane", "QDPromotionController", "--size", f"{width}x600",
                                     "--map-host", server.mapping, "--screenshot", file)
                self.assertEqual((result.returncode, result.stdout), (0, ""), result.stderr)
                shown = picture.Picture(file)
                band = [y for y in range(shown.height) if shown.at(width // 2, y) == BLUE]
                self.assertEqual(len(band), 20)
                boxes = shown.colors(0, 0, width, band[0]).get(GREEN, 0)
                self.assertEqual(boxes, 7 * 100 * 100)
                self.assertEqual(band[-1] + 1 - (BAR + GAP), height)

    def test_the_page_reaches_nothing_but_its_own_server(self):
        other = self.serve("com.a")
        page = os.path.join(self.root, "page.html")
        with open(page, "w", encoding="utf-8") as file:
            file.write(f"""<!DOCTYPE html><img src="http://127.0.0.1:{other.port}/by-number.svg">
<img src="http://localhost:{other.port}/by-name.svg"><img src="file://{self.boxes}">
<link rel="stylesheet" href="http://{HOST}:{other.port}/own-name.css">
<iframe src="http://127.0.0.1:{other.port}/frame"></iframe><link rel="icon" href="/icon.svg">
<script>document.write('<img src="/script.svg">')</script><meta http-equiv="refresh" content="0; url=/onward">
<a ping="http://127.0.0.1:{other.port}/ping" href="/x">x</a><img src="/own.svg">""")
        server = self.serve("com.a", arguments=["--page", page])
        application = self.start(server)
        self.press(application, "push button", "More Tweaks, 1")
        application.wait_for("document web", "Web page")
        # An address of that host leads to its mapped place whatever its port says.
        expected = {f"GET {BASE}&list=1 HTTP/1.1", f"GET {BASE}&unseen=com.a HTTP/1.1", "GET /own.svg HTTP/1.1",
                    "GET /own-name.css HTTP/1.1"}
        desktop.wait_for(lambda: {line for line, _ in server.requests()} == expected and len(server.requests()) == 7,
                         "the requests of two loads")
        self.press(application, "push button", "Back, QuietDial")
        application.wait_for("push button", "More Tweaks")
        self.assertEqual({line for line, _ in server.requests()}, expected)
        self.assertEqual(other.requests(), [])

    def test_a_link_opens_in_the_browser_and_the_list_scrolls_over_the_page(self):
        opened = os.path.join(self.root, "opened")
        handler = os.path.join(self.root, "xdg-open")
        with open(handler, "w", encoding="utf-8") as file:
            file.write(f'#!/bin/sh\necho "$1" >>{opened}\n')
        os.chmod(handler, 0o755)
        page = os.path.join(self.root, "page.html")
        with open(page, "w", encoding="utf-8") as file:
            file.write("""<!DOCTYPE html><style>body{margin:0}a{display:block;height:300px;background:#0a0}
div{height:1700px}</style><a href="https://other.example/a?b=c%7Cd">x</a><div></div>""")
        server = self.serve("com.a", arguments=["--page", page])
        former = os.environ["PATH"]
        os.environ["PATH"] = f"{self.root}:{former}"
        self.addCleanup(os.environ.__setitem__, "PATH", former)
        application = self.start(server)
        self.press(application, "push button", "More Tweaks, 1")
        application.wait_for("document web", "Web page")
        desktop.wait_for(lambda: self.page_place(application)[3] == 2000,
                         "the page to be measured")
        x, y, width, _ = self.page_place(application)

        def click():
            # The engine draws, and is pressed, a moment after it has loaded.
            desktop.xdotool("mousemove", x + width // 2, y + 150, "click", 1)
            return os.path.exists(opened)
        desktop.wait_for(click, "the link to be opened")
        with open(opened, encoding="utf-8") as file:
            self.assertEqual(file.readline(), "https://other.example/a?b=c%7Cd\n")
        self.assertEqual(len(server.requests()), 3)
        desktop.xdotool("click", 5, "click", 5)
        desktop.wait_for(lambda: self.page_place(application)[1] < y - 50,
                         "the list to be scrolled by the wheel")
        y = self.page_place(application)[1]
        desktop.xdotool("mousemove", x + width // 2, 500, "mousedown", 1)
        for step in range(460, 200, -40):
            desktop.xdotool("mousemove", x + width // 2, step)
        desktop.xdotool("mouseup", 1)
        desktop.wait_for(lambda: self.page_place(application)[1] < y - 50,
                         "the list to be dragged")

    def test_an_identifier_goes_over_the_wire_as_it_was_encoded(self):
        server = self.serve("a'b c|d&e", "[x]")
        application = self.start(server)
        self.press(application, "push button", "More Tweaks, 3")
        application.wait_for("document web", "Web page")
        page = f"GET {BASE}&unseen=a'b%20c%7Cd&e%7C[x] HTTP/1.1"
        desktop.wait_for(lambda: [line for line, _ in server.requests()] == [f"GET {BASE}&list=1 HTTP/1.1", page, page],
                         "two loads of the page")

    def test_a_page_that_is_not_there_leaves_the_wheel(self):
        server = self.serve("com.a", arguments=["--page-fault", "status=404"])
        application = self.start(server)
        self.press(application, "push button", "More Tweaks, 1")
        desktop.wait_for(lambda: len(server.requests()) == 2, "the page to be asked for")
        application.wait_for("animation", "Loading")
        self.assertIsNone(application.find("document web", "Web page"))
        self.press(application, "push button", "Back, QuietDial")
        application.wait_for("push button", "More Tweaks, 1")
        self.assertEqual(self.settings(), {})

    def test_where_the_engine_cannot_be_used_a_note_leads_to_the_browser(self):
        server = self.serve("com.a")
        application = self.start(server, "--no-web-engine")
        self.press(application, "push button", "More Tweaks, 1")
        application.wait_for("label", "This page cannot be shown here.")
        application.wait_for("push button", "Open in Browser")
        desktop.wait_for(lambda: self.settings() == {"seen_tweaks": ["com.a"]}, "the tweak to count as seen")

    def test_the_first_page_answers_while_the_server_hangs(self):
        server = self.serve("com.a", arguments=["--list-fault", "hang"])
        application = self.start(server)
        desktop.wait_for(lambda: len(server.requests()) == 1, "the list to be asked for")
        self.press(application, "push button", "Hide Caller ID Prefix")
        application.wait_for("radio button", "Algeria")
        self.press(application, "push button", "Back, QuietDial")
        application.wait_for("push button", "More Tweaks")
        application.process.terminate()
        self.assertEqual(application.process.wait(desktop.PATIENCE), 0)


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
