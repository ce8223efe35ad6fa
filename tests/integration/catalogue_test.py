"""The catalogue, from the badge to the page, against the real server: what is stored, and what a
server that is slow, absent, broken or hostile can do."""

import contextlib
import json
import os
import plistlib
import socket
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from catalogue import HOST, Catalogue, make_certificate  # noqa: E402
from drive import Drive, program  # noqa: E402

ROOT = "QDPreferencesListController"
PREFIX = "QDCountryPrefixController"
PROMOTION = "QDPromotionController"
BASE = "/tweaks/tweaks.php?id=me.orlanvey.quietdial"
LIST = f"http://{HOST}{BASE}&list=1"
PAGE = f"http://{HOST}{BASE}"
LONGEST_LIST = 64 << 10  # bytes
SETTINGS = "User/Library/Preferences/me.orlanvey.quietDial.plist"


def promotion_row(drive):
    return next(row for row in drive.rows() if row["id"] == "QDPromotionCell")


def badge(drive):
    return promotion_row(drive)["properties"].get("badgeString")


class Journey(unittest.TestCase):
    def test_badge_page_seen_and_one_more(self):
        with Catalogue("com.b", "com.a") as server, tempfile.TemporaryDirectory() as root, \
                Drive("--map-host", server.mapping, "--root", root) as drive:
            path = os.path.join(root, SETTINGS)
            os.makedirs(os.path.dirname(path))
            before = {"dialerMode": 1, "foreign": {"kept": [1, 2.5, b"\0"]}}
            with open(path, "wb") as file:
                plistlib.dump(before, file)

            drive.do("push", pane=ROOT)
            self.assertEqual(badge(drive), "2")
            self.assertEqual(drive.events(), [{"event": "fetch", "url": LIST, "ok": True}])
            self.assertEqual(drive.do("globals")["availableTweaks"], ["com.b", "com.a"])
            self.assertEqual(drive.do("globals")["unseenTweaks"], ["com.b", "com.a"])

            reply = drive.do("tap", row=promotion_row(drive)["index"])
            self.assertEqual(reply["pane"], PROMOTION)
            (row,) = drive.rows()
            url = PAGE + "&unseen=com.b%7Ccom.a"
            self.assertEqual((row["id"], row["properties"]["url"], row["height"]), ("TweaksPromotionCell", url, 480))
            after = {**before, "seen_tweaks": ["com.b", "com.a"]}
            with open(path, "rb") as file:
                self.assertEqual(plistlib.load(file), after)
            load = [
                {"event": "load", "url": url, "timeout": 30},
                {"event": "load", "url": url, "finish": True, "ok": True},
            ]
            events = drive.events()
            self.assertEqual([event for event in events if event["event"] == "load"], load + load)
            self.assertEqual([event["event"] for event in events], ["load", "load", "write", "load", "load"])
            self.assertEqual(list(events[2]["settings"]), sorted(after))

            drive.do("pop")
            self.assertEqual(badge(drive), "")
            server.set_tweaks("com.b", "com.c", "com.a")
            drive.do("tap", row=0)
            drive.do("pop")
            self.assertEqual(badge(drive), "1")
            self.assertEqual(drive.do("globals")["unseenTweaks"], ["com.c"])

    def test_identifiers_go_over_the_wire_byte_for_byte(self):
        tweaks = ["a b", "c&d=e", "100%", "ä€", "AZaz09-._~!$&'()*+,;=:[]", "/?#@\"<>\\^`{}"]
        expected = (
            "&unseen=a%20b%7Cc&d=e%7C100%25%7C%C3%A4%E2%82%AC%7CAZaz09-._~!$&'()*+,;=:[]%7C"
            "%2F%3F%23%40%22%3C%3E%5C%5E%60%7B%7D")
        with Catalogue(*tweaks) as server, Drive("--map-host", server.mapping) as drive:
            drive.do("push", pane=ROOT)
            drive.do("tap", row=promotion_row(drive)["index"])
            self.assertEqual(drive.settings()["seen_tweaks"], tweaks)
            page = (f"GET {BASE}{expected} HTTP/1.1", HOST)
            self.assertEqual(server.requests(), [(f"GET {BASE}&list=1 HTTP/1.1", HOST), page, page])

    def test_the_servers_word_on_the_pages_height_is_taken(self):
        for said, height in (("700.5", 700.5), ("0", 0), ("-5", 480), ("19999.5", 19999.5)):
            with Catalogue("a", arguments=["--content-height", said]) as server, \
                    Drive("--map-host", server.mapping) as drive:
                drive.do("push", pane=PROMOTION)
                self.assertEqual(drive.rows()[0]["height"], height)
                view = drive.do("views", row=0)["view"]
                page = next(view for view in view["children"][0]["children"] if view["class"] == "UIWebView")
                self.assertEqual(page["frame"], [0, 0, 320, height])
                self.assertEqual(page["url"], PAGE)

    def test_a_page_is_20000_points_high_at_most(self):
        for said in ("20000", "20000.5", "5000000", "1e300", "inf"):
            with self.subTest(said), Catalogue("a", arguments=["--content-height", said]) as server, \
                    Drive("--map-host", server.mapping) as drive:
                drive.do("push", pane=PROMOTION)
                (row,) = drive.rows()
                self.assertEqual((row["id"], row["height"]), ("TweaksPromotionCell", 20000))
                view = drive.do("views", row=0)["view"]
                page = next(view for view in view["children"][0]["children"] if view["class"] == "UIWebView")
                self.assertEqual(page["frame"], [0, 0, 320, 20000])

    def test_before_the_first_answer_nothing_is_known_or_stored(self):
        with Catalogue("a") as server, Drive("--map-host", server.mapping) as drive:
            globals_ = drive.do("globals")
            self.assertEqual((globals_["availableTweaks"], globals_["unseenTweaks"]), (None, None))
            drive.do("push", pane=PROMOTION)
            self.assertEqual(drive.rows()[0]["id"], "TweaksPromotionCell")
            self.assertIs(drive.do("settings")["exists"], False)

    def test_redirects_are_followed_up_to_five(self):
        for count, ok in ((5, True), (6, False)):
            with Catalogue("a", arguments=["--list-fault", f"redirect={count}"]) as server, \
                    Drive("--map-host", server.mapping) as drive:
                drive.do("push", pane=ROOT)
                self.assertEqual(drive.events(), [{"event": "fetch", "url": LIST, "ok": ok}])


    def test_a_redirect_may_lead_to_https_and_from_there_no_more_to_http(self):
        with tempfile.TemporaryDirectory() as folder:
            certificate = make_certificate(folder)
            trusting = dict(os.environ, LD_PRELOAD=os.environ["QUIETDIAL_TRUST_SHIM"], QUIETDIAL_TRUSTED=certificate)
            for fault, ok in (("to-https", True), ("to-http", False)):
                with self.subTest(fault), \
                        Catalogue("a", arguments=["--certificate", certificate, "--list-fault", fault]) as server, \
                        Drive("--map-host", server.mapping, environment=trusting) as drive:
                    drive.do("push", pane=ROOT)
                    self.assertEqual(drive.events(), [{"event": "fetch", "url": LIST, "ok": ok}])
                    self.assertEqual(len(server.requests()), 2)


class Unmapped(unittest.TestCase):
    def test_a_host_that_is_not_mapped_is_unreachable(self):
        with Drive() as drive:
            drive.do("push", pane=ROOT)
            self.assertEqual(drive.events(), [{"event": "fetch", "url": LIST, "ok": False}])
            self.assertIsNone(badge(drive))
            drive.do("push", pane=PROMOTION)
            self.assertEqual([event["event"] for event in drive.events()], ["load", "load"])

    def test_no_redirect_leads_to_one(self):
        with Catalogue("a") as other:
            for target in (f"http://127.0.0.1:{other.port}{BASE}", "file:///etc/hostname", "ftp://localhost/",
                           f"http://user:secret@{HOST}/"):
                with Catalogue("a", arguments=["--list-fault", f"away={target}"]) as server, \
                        Drive("--map-host", server.mapping) as drive:
                    drive.do("push", pane=ROOT)
                    self.assertEqual(drive.events(), [{"event": "fetch", "url": LIST, "ok": False}])
            self.assertEqual(other.requests(), [])

    def test_no_proxy_is_asked(self):
        with Catalogue("a") as proxy, Catalogue("a") as server:
            os.environ["http_proxy"] = f"http://127.0.0.1:{proxy.port}"
            try:
                with Drive("--map-host", server.mapping) as drive:
                    drive.do("push", pane=ROOT)
                    self.assertEqual(badge(drive), "1")
            finally:
                del os.environ["http_proxy"]
            self.assertEqual(proxy.requests(), [])


class BadServers(unittest.TestCase):
    """The badge of the last good answer stays, and nothing is stored."""

    def quick_fault(self, fault):
        with contextlib.ExitStack() as ending:
            root = ending.enter_context(tempfile.TemporaryDirectory())
            server = ending.enter_context(Catalogue("a", "b"))
            drive = ending.enter_context(Drive("--map-host", server.mapping, "--root", root))
            drive.do("push", pane=ROOT)
            self.assertEqual(badge(drive), "2")
            server.end()
            drive.events()
            if fault:
                ending.enter_context(Catalogue("a", "b", "c", port=server.port, arguments=fault))
            drive.do("tap", row=0)
            drive.do("pop")
            self.assertEqual(drive.events("fetch"), [{"event": "fetch", "url": LIST, "ok": False}])
            self.assertEqual(badge(drive), "2")
            globals_ = drive.do("globals")
            self.assertEqual((globals_["availableTweaks"], globals_["unseenTweaks"]), (["a", "b"], ["a", "b"]))
            stored = drive.settings()
            drive.do("tap", row=promotion_row(drive)["index"])
            (row,) = drive.rows()
            self.assertEqual((row["properties"]["cellClass"], row["height"]), ("TBPSSpinnerTableCell", 100))
            self.assertIs(drive.events("load")[-1]["ok"], False)
            self.assertEqual(drive.settings(), stored)
            self.assertNotIn("seen_tweaks", stored)

    def fault(self, name):
        self.quick_fault(["--list-fault", name, "--page-fault", name])

    def test_server_down(self):
        self.quick_fault(None)

    def test_status_500(self):
        self.fault("status=500")

    def test_status_404(self):
        self.fault("status=404")

    def test_two_gibibytes_of_text(self):
        self.fault("huge")

    def test_more_tweaks_than_a_settings_file_could_hold(self):
        """The longest list that is taken leaves room for settings; a longer one changes nothing."""
        with tempfile.TemporaryDirectory() as root:
            path = os.path.join(root, SETTINGS)
            os.makedirs(os.path.dirname(path))
            with open(path, "wb") as file:
                plistlib.dump({"seen_tweaks": [""]}, file)
            page = os.path.join(root, "page.html")
            with open(page, "w", encoding="utf-8") as file:
                file.write("<p>No tweaks.")
            with Catalogue(*[""] * (LONGEST_LIST + 2), arguments=["--page", page]) as server, \
                    Drive("--map-host", server.mapping, "--root", root) as drive:
                drive.do("push", pane=ROOT)
                self.assertEqual(drive.events("fetch"), [{"event": "fetch", "url": LIST, "ok": False}])
                drive.do("tap", row=promotion_row(drive)["index"])
                self.assertEqual(drive.settings(), {"seen_tweaks": [""]})
                drive.do("pop")
                server.set_tweaks(*[""] * (LONGEST_LIST + 1))
                drive.do("tap", row=0)
                drive.do("pop")
                drive.do("tap", row=promotion_row(drive)["index"])
                self.assertEqual(drive.settings()["seen_tweaks"], [""] * (LONGEST_LIST + 1))
                drive.do("push", pane=PREFIX)
                drive.do("tap", row=5)
                self.assertEqual(drive.settings()["selectedCountry"], "Canada")
                self.assertNotIn(False, [event["ok"] for event in drive.events("write")])

    def test_a_cut_off_answer(self):
        self.fault("cut")

    def test_a_redirect_loop(self):
        self.fault("loop")

    def test_a_list_that_is_no_utf8(self):
        self.quick_fault(["--list-fault", "not-utf8", "--page-fault", "status=500"])

    def test_a_first_list_that_is_no_utf8(self):
        with Catalogue("a", arguments=["--list-fault", "not-utf8"]) as server, \
                Drive("--map-host", server.mapping) as drive:
            drive.do("push", pane=ROOT)
            self.assertEqual(drive.events(), [{"event": "fetch", "url": LIST, "ok": False}])
            self.assertIsNone(badge(drive))

    def slow_fault(self, name):
        """The first page answers while the fetches hang; they end after half a minute."""
        with Catalogue("a", "b") as server, Drive("--map-host", server.mapping) as drive:
            drive.do("push", pane=ROOT)
            server.end()
            drive.events()
            with Catalogue("a", "b", "c" * 41, port=server.port, arguments=["--list-fault", name]) as broken:
                times = []
                for _ in range(5):
                    for request in ({"do": "tap", "row": 0}, {"do": "pop"}):
                        start = time.monotonic()
                        drive.do(**request, settle=False)
                        times.append(time.monotonic() - start)
                # Not one of the replies has waited for a fetch.
                early = drive.do("events", settle=False)["events"]
                self.assertNotIn("fetch", [event["event"] for event in early])
                self.assertLess(sorted(times)[len(times) // 2], 0.1)
                self.assertEqual(drive.events("fetch"), [])  # what a request settles shows in the next
                self.assertEqual(drive.events("fetch"), [{"event": "fetch", "url": LIST, "ok": False}] * 5)
                self.assertEqual(len(broken.requests()), 5)
            self.assertEqual(badge(drive), "2")
            self.assertNotIn("seen_tweaks", drive.settings())

    def test_an_answer_after_40_seconds(self):
        self.slow_fault("late=40")

    def test_a_byte_a_second(self):
        # Complete after 45 seconds, for one who waits longer than half a minute.
        self.slow_fault("drip")

    def test_the_end_does_not_wait_for_a_server_that_hangs(self):
        with Catalogue("a", arguments=["--list-fault", "hang", "--page-fault", "hang"]) as server:
            start = time.monotonic()
            with Drive("--map-host", server.mapping) as drive:
                drive.do("push", pane=ROOT, settle=False)
                drive.do("push", pane=PROMOTION, settle=False)
                drive.do("quit", settle=False)
            self.assertLess(time.monotonic() - start, 15)


class Demonstration(unittest.TestCase):
    def test_a_newcomer_sees_a_badge_and_the_server_ends_with_the_program(self):
        script = os.path.join(os.path.dirname(__file__), "..", "..", "scripts", "with-catalogue")
        lines = '{"do":"push","pane":"%s"}\n{"do":"globals"}\n' % ROOT
        result = subprocess.run([script, program(), "drive"], input=lines, capture_output=True, text=True, timeout=60)
        self.assertEqual(result.stderr, "")
        tweaks = json.loads(result.stdout.splitlines()[1])["unseenTweaks"]
        self.assertGreater(len(tweaks), 2)
        shown = subprocess.run([script, "echo"], capture_output=True, text=True, timeout=60).stdout.split()
        self.assertEqual((shown[0], shown[1].split("=")[0]), ("--map-host", HOST))
        address = shown[1].split("=")[1].split(":")
        end = time.monotonic() + 30
        with self.assertRaises(ConnectionRefusedError):
            while time.monotonic() < end:
                socket.create_connection((address[0], int(address[1]))).close()


if __name__ == "__main__":
    unittest.main()
