"""The badge, the wheel and the page of tweaks, in the window and against the real server."""

import json
import os
import plistlib
import sys
import tempfile
import unittest

import desktop
import picture
import program

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from catalogue import HOST, Catalogue, make_certificate  # noqa: E402

BASE = "/tweaks/tweaks.php?id=me.orlanvey.quietdial"
# As many boxes beside each other as fit, and a band under them: at 320 points three rows of boxes,
# at 414 two.
BOXES = """<!DOCTYPE html><meta name="viewport" content="width=device-width">
<style>body{margin:0;background:#fff}div{float:left;width:100px;height:100px;background:#0a0}
p{clear:both;margin:0;height:20px;background:#00f}</style>
""" + "<div></div>" * 7 + "<p></p>"
HEIGHTS = {320: 320, 414: 220}
# Longer than any page is shown.
LONG = """<!DOCTYPE html><style>body{margin:0;background:#fff}div{height:5000000px;background:#0a0}</style><div></div>"""
GREEN, BLUE = (0, 170, 0), (0, 0, 255)
# What the desktop opens addresses with: keeps the address, its own environment, and what else is open.
BROWSER = """#!/usr/bin/python3 -I
import json, os, sys
environment = dict(line.split("=", 1) for line in open("/proc/self/environ").read().split("\\0") if line)
open_files = {number: os.readlink("/proc/self/fd/" + number) for number in ("0", "1", "2")}
for number in range(3, 1024):
    try:
        open_files[str(number)] = os.readlink(f"/proc/self/fd/{number}")
    except FileNotFoundError:
        pass
with open(os.path.join(os.path.dirname(sys.argv[0]), "opened"), "a") as file:
    file.write(json.dumps([sys.argv[1:], environment, open_files]) + "\\n")
"""
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
        self.browser = os.path.join(self.root, "browser")
        os.mkdir(self.browser)
        handler = os.path.join(self.browser, "xdg-open")
        with open(handler, "w", encoding="utf-8") as file:
            file.write(BROWSER)
        os.chmod(handler, 0o755)
        former = os.environ["PATH"]
        os.environ["PATH"] = f"{self.browser}:{former}"
        self.addCleanup(os.environ.__setitem__, "PATH", former)

    def opened(self):
        """What the browser was started with, each time."""
        try:
            with open(os.path.join(self.browser, "opened"), encoding="utf-8") as file:
                return [json.loads(line) for line in file if line.endswith("\n")]
        except FileNotFoundError:
            return []

    def addresses(self):
        return [address for (address,), _, _ in self.opened()]

    def page(self, text):
        """A file with that page, for the server."""
        path = os.path.join(self.root, "page.html")
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path

    def click_until_opened(self, x, y, address):
        """The engine draws, and is pressed, a moment after it has loaded."""
        def click():
            desktop.xdotool("mousemove", x, y, "click", 1)
            return address in self.addresses()
        desktop.wait_for(click, f"{address} to be opened")

    def serve(self, *tweaks, **options):
        server = Catalogue(*tweaks, **options)
        self.addCleanup(server.end)
        return server

    def start(self, server, *arguments, **environment):
        application = desktop.Application(
            self.root, "--pane", "QDPreferencesListController", "--map-host", server.mapping, *arguments,
            **environment)
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

    def forget_what_was_seen(self):
        if self.settings():
            os.remove(os.path.join(self.root, program.SETTINGS_FILE))

    def test_from_the_badge_to_the_page_and_back(self):
        let_go = os.path.join(self.root, "let-go")
        server = self.serve("com.b", "com.a", arguments=["--page-fault", "held=" + let_go])
        application = self.start(server)
        self.press(application, "push button", "More Tweaks, 2")
        application.wait_for("animation", "Loading")
        self.assertNotIn("seen_tweaks", self.settings())
        with open(let_go, "w", encoding="ascii"):
            pass
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
                self.forget_what_was_seen()

    def test_the_row_is_as_high_as_the_page_at_any_scale(self):
        for scale in ("1.5", "2", "3"):
            with self.subTest(scale):
                server = self.serve("com.a", arguments=["--page", self.boxes])
                file = os.path.join(self.root, "scaled.png")
                result = program.run("--root", self.root, "--pane", "QDPromotionController", "--size", "320x450",
                                     "--scale", scale, "--map-host", server.mapping, "--screenshot", file)
                self.assertEqual((result.returncode, result.stdout), (0, ""), result.stderr)
                shown = picture.Picture(file)
                middle = shown.width // 2
                end = next(y for y in reversed(range(shown.height)) if shown.at(middle, y) == BLUE)
                self.assertAlmostEqual((end + 1) / float(scale), BAR + GAP + HEIGHTS[320], delta=1)
                # Under the row, its line aside, comes what is above it.
                above, under = (BAR + GAP / 2) * float(scale), end + 3 * float(scale)
                self.assertEqual(shown.at(middle, under), shown.at(middle, above))

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
        page = self.page(f"""<!DOCTYPE html><img src="http://127.0.0.1:{other.port}/by-number.svg">
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

    def test_a_redirect_leads_the_window_to_no_other_host(self):
        other = self.serve("com.other")
        away = [f"away=http://127.0.0.1:{other.port}{BASE}"]
        server = self.serve("com.a", arguments=["--list-fault", away[0] + "&list=1"])
        application = self.start(server)
        desktop.wait_for(lambda: len(server.requests()) == 1, "the list to be asked for")
        # A page that the engine asks for itself, and one that is fetched for it.
        for tweak in ("com.a", "com.'a"):
            with self.subTest(tweak):
                server = self.serve(tweak, arguments=["--page-fault", *away])
                application.close()
                application = self.start(server)
                self.press(application, "push button", "More Tweaks, 1")
                desktop.wait_for(lambda: len(server.requests()) == 2, "the page to be asked for")
                application.wait_for("animation", "Loading")
                self.press(application, "push button", "Back, QuietDial")
                application.wait_for("push button", "More Tweaks, 1")
        self.assertEqual(other.requests(), [])

    def test_a_redirect_leads_the_engine_to_https_and_from_there_no_more_to_http(self):
        certificate = make_certificate(self.root)
        trusting = {"QTWEBENGINE_CHROMIUM_FLAGS": "--ignore-certificate-errors"}
        for fault, loads in (("to-https", 2), ("to-http", 1)):
            with self.subTest(fault):
                server = self.serve("com.a", arguments=["--certificate", certificate, "--page-fault", fault])
                application = self.start(server, **trusting)
                self.press(application, "push button", "More Tweaks, 1")
                if fault == "to-https":
                    application.wait_for("document web", "Web page")
                desktop.wait_for(lambda: len(server.requests()) == 1 + 2 * loads, "the page to be asked for")
                self.press(application, "push button", "Back, QuietDial")
                application.wait_for("push button", "More Tweaks" if fault == "to-https" else "More Tweaks, 1")
                desktop.wait_for(lambda: len(server.requests()) >= 2 + 2 * loads, "the list to be asked for again")
                self.assertEqual(len(server.requests()), 2 + 2 * loads)
                application.close()
                self.forget_what_was_seen()

    def test_a_link_opens_in_the_browser_and_the_list_scrolls_over_the_page(self):
        page = self.page("""<!DOCTYPE html><style>body{margin:0}a{display:block;height:300px;background:#0a0}
div{height:1700px}</style><a href="https://other.example/a?b=c%7Cd">x</a><div></div>""")
        server = self.serve("com.a", arguments=["--page", page])
        application = self.start(server)
        self.press(application, "push button", "More Tweaks, 1")
        application.wait_for("document web", "Web page")
        desktop.wait_for(lambda: self.page_place(application)[3] == 2000,
                         "the page to be measured")
        x, y, width, _ = self.page_place(application)
        self.click_until_opened(x + width // 2, y + 150, "https://other.example/a?b=c%7Cd")
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

    def test_the_browser_gets_the_windows_own_start_and_nothing_of_its_insides(self):
        page = self.page("""<!DOCTYPE html><style>body{margin:0}a{display:block;height:300px;background:#0a0}</style>
<a href="https://other.example/">x</a>""")
        server = self.serve("com.a", arguments=["--page", page])
        application = self.start(server, "--scale", "1", DESKTOP_STARTUP_ID="an-id_TIME0")
        self.press(application, "push button", "More Tweaks, 1")
        application.wait_for("document web", "Web page")
        desktop.wait_for(lambda: self.page_place(application)[3] == 300, "the page to be measured")
        x, y, width, _ = self.page_place(application)
        self.click_until_opened(x + width // 2, y + 150, "https://other.example/")
        _, environment, open_files = self.opened()[0]
        self.assertEqual(environment, dict(os.environ))
        self.assertEqual(sorted(open_files), ["0", "1", "2"], open_files)

    def test_the_engines_environment_is_set_before_any_thread_is_started(self):
        log = os.path.join(self.root, "environment")
        application = self.start(self.serve("com.a"), LD_PRELOAD=os.environ["QUIETDIAL_ENVIRONMENT_SHIM"],
                                 QUIETDIAL_ENVIRONMENT_LOG=log)
        self.press(application, "push button", "More Tweaks, 1")
        application.wait_for("document web", "Web page")
        application.close()
        with open(log, encoding="utf-8") as file:
            changes = [line.split() for line in file]
        engines = [change for change in changes if change[0].startswith("QTWEBENGINE_")]
        self.assertIn(["QTWEBENGINE_CHROMIUM_FLAGS", "1"], engines)
        self.assertEqual({threads for _, threads in engines}, {"1"}, engines)

    def test_a_mail_link_keeps_its_address_subject_and_body_and_the_package_manager_is_not_opened(self):
        links = ("https://other.example/", "cydia://url/https://other.example/",
                 "mailto:a%40b.example?attach=/etc/passwd&amp;Subject=Two%0AWords&amp;cc=c@d.example&amp;body=x%26y",
                 "mailto:a@b.example,--attach@/etc/passwd", "mailto:c@d.example")
        page = self.page("<!DOCTYPE html><style>body{margin:0}a{display:block;height:80px;background:#0a0}</style>"
                         + "".join(f'<a href="{link}">x</a>' for link in links))
        server = self.serve("com.a", arguments=["--page", page])
        application = self.start(server)
        self.press(application, "push button", "More Tweaks, 1")
        application.wait_for("document web", "Web page")
        desktop.wait_for(lambda: self.page_place(application)[3] == 400, "the page to be measured")
        x, y, _, _ = self.page_place(application)
        self.click_until_opened(x + 50, y + 40, "https://other.example/")
        desktop.xdotool("mousemove", x + 50, y + 120, "click", 1)
        rebuilt = "mailto:a@b.example?subject=Two%20Words&body=x%26y"
        self.click_until_opened(x + 50, y + 200, rebuilt)
        desktop.xdotool("mousemove", x + 50, y + 280, "click", 1)
        self.click_until_opened(x + 50, y + 360, "mailto:c@d.example")
        self.assertEqual(set(self.addresses()), {"https://other.example/", rebuilt, "mailto:c@d.example"})

    def open_long_page(self):
        server = self.serve("com.a", arguments=["--page", self.page(LONG)])
        application = self.start(server)
        self.press(application, "push button", "More Tweaks, 1")
        application.wait_for("document web", "Web page")
        desktop.wait_for(lambda: self.page_place(application)[3] == 20000, "the row to be as high as a page may be")
        application.wait_for("label", "This page is too long to be shown here as a whole.")
        return application, f"http://{HOST}{BASE}&unseen=com.a"

    def button_place(self, application):
        return application.place(application.wait_for("push button", "Open in Browser"))

    def is_button_in_sight(self, application):
        _, top, _, height = application.place(application.top()[0])
        _, y, _, button_height = self.button_place(application)
        return top + BAR <= y and y + button_height <= top + height

    def test_a_page_that_is_too_long_says_so_at_its_end_where_a_button_opens_it(self):
        application, address = self.open_long_page()
        x, y, width, height = self.page_place(application)
        button_x, button_y, button_width, button_height = self.button_place(application)
        self.assertTrue(x <= button_x and button_x + button_width <= x + width)
        self.assertTrue(y + height - 200 < button_y and button_y + button_height <= y + height)
        self.assertFalse(self.is_button_in_sight(application))
        desktop.xdotool("mousemove", x + 100, 500)

        def scroll():
            desktop.xdotool("click", "--repeat", 50, "--delay", 1, 5)
            return self.is_button_in_sight(application)
        desktop.wait_for(scroll, "the end of the page to be in sight")

        def is_drawn():
            above = self.button_place(application)[1] - 100
            return desktop.pixel(x + 100, above) == GREEN
        desktop.wait_for(is_drawn, "the page to be drawn above its end")

        def click():
            # The list may still be on its way.
            x, y, width, height = self.button_place(application)
            desktop.xdotool("mousemove", x + width // 2, y + height // 2, "click", 1)
            return address in self.addresses()
        desktop.wait_for(click, "the page to be opened")

    def test_a_page_that_is_too_long_is_opened_by_the_keyboard(self):
        application, address = self.open_long_page()

        def go_on():
            desktop.xdotool("key", "Tab")
            button = application.find("push button", "Open in Browser")
            return "focused" in application.states(button)
        desktop.wait_for(go_on, "the keyboard to reach the button")
        desktop.wait_for(lambda: self.is_button_in_sight(application), "the button to be in sight")
        desktop.xdotool("key", "Return")
        desktop.wait_for(lambda: self.addresses() == [address], "the page to be opened")

    def test_a_page_that_is_too_long_is_opened_through_the_accessibility_bus(self):
        application, address = self.open_long_page()
        application.press("push button", "Open in Browser")
        desktop.wait_for(lambda: self.addresses() == [address], "the page to be opened")

    def test_a_page_that_is_not_too_long_is_shown_without_a_word(self):
        server = self.serve("com.a", arguments=["--page", self.page(LONG.replace("5000000", "20000"))])
        application = self.start(server)
        self.press(application, "push button", "More Tweaks, 1")
        application.wait_for("document web", "Web page")
        desktop.wait_for(lambda: self.page_place(application)[3] == 20000, "the page to be measured")
        self.assertIsNone(application.find("label", "This page"))
        self.assertIsNone(application.find("push button", "Open in Browser"))

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
