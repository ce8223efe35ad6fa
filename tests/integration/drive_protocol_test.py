"""The script protocol: what a script may rely on, whatever it sends."""

import os
import plistlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
from drive import Drive, program  # noqa: E402

PREFIX = "QDCountryPrefixController"
ROOT = "QDPreferencesListController"


def run(*arguments, lines=""):
    return subprocess.run([program(), *arguments], input=lines, capture_output=True, text=True, timeout=60)


class CommandLine(unittest.TestCase):
    def test_help_and_version_succeed(self):
        for words in (["--help"], ["--version"], ["drive", "--help"], ["gif", "--help"]):
            with self.subTest(words):
                result = run(*words)
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.assertNotEqual(result.stdout, "")

    def test_unusable_arguments_end_with_2_and_one_line_that_says_why(self):
        for words in (
            [],
            ["dance"],
            ["drive", "--width", "wide"],
            ["drive", "--width", "0"],
            ["drive", "--unknown"],
            ["drive", "--mail", "maybe"],
            ["drive", "--map-host", "name"],
            ["drive", "extra"],
        ):
            with self.subTest(words):
                result = run(*words)
                self.assertEqual(result.returncode, 2)
                self.assertEqual(result.stdout, "")
                self.assertEqual(result.stderr.count("\n"), 1, result.stderr)

    def test_the_session_ends_with_0_at_the_end_of_input_or_after_quit(self):
        self.assertEqual(run("drive").returncode, 0)
        result = run("drive", lines='{"do":"quit"}\n{"do":"rows"}\n')
        self.assertEqual((result.returncode, result.stdout), (0, '{"ok":true}\n'))

    def test_a_last_line_without_its_end_is_answered(self):
        self.assertEqual(run("drive", lines='{"do":"quit"}').stdout, '{"ok":true}\n')


class Refusals(unittest.TestCase):
    def test_what_cannot_be_carried_out_says_so_and_changes_nothing(self):
        with Drive() as drive:
            drive.do("push", pane=PREFIX)
            drive.events()
            before = (drive.settings(), drive.do("rows"))
            for line in (
                "",
                "x",
                "[]",
                "3",
                '"do"',
                "{",
                "{}",
                '{"do":3}',
                '{"do":"dance"}',
                '{"do":"tap"}',
                '{"do":"tap","row":"1"}',
                '{"do":"tap","row":-1}',
                '{"do":"tap","row":38}',
                '{"do":"tap","row":1.5}',
                '{"do":"tap","row":1e300}',
                '{"do":"tap","row":99999999999999999999}',
                '{"do":"push"}',
                '{"do":"push","pane":"QDNothing"}',
                '{"do":"push","pane":"PSTableCell"}',
                '{"do":"views","row":0}',
                '{"do":"type","row":1,"text":"a"}',
                '{"do":"type","row":37}',
                '{"do":"type","row":37,"text":1}',
                '{"do":"press","row":1,"button":1}',
                '{"do":"segment","row":1,"index":0}',
                '{"do":"bar","side":"right"}',
                '{"do":"bar","side":"up"}',
                '{"do":"sheet","result":"ok"}',
                '{"do":"resize","width":"wide"}',
                '{"do":"resize","width":-1}',
                '{"do":"resize","width":1e999}',
                '{"do":"advance","seconds":-1}',
                '{"do":"advance","seconds":null}',
                '{"do":"refresh","count":-1,"duration":0.016}',
                '{"do":"refresh","count":1,"duration":"long"}',
                '{"do":"refresh","duration":0.016}',
                '{"do":"tap","row":5,"settle":1}',
                '{"do":"\\ud800"}',
                "[" * 100000,
                '{"do":"' + "x" * 2_000_000 + '"}',
            ):
                with self.subTest(line[:60]):
                    reply = drive.line(line)
                    self.assertIs(reply["ok"], False)
                    self.assertTrue(reply["error"].endswith("."), reply)
            self.assertEqual((drive.settings(), drive.do("rows")), before)
            self.assertEqual(drive.events(), [])

    def test_requests_without_a_pane_are_refused(self):
        with Drive() as drive:
            for do in ("rows", "pop"):
                self.assertIs(drive.ask(do)["ok"], False)
            self.assertIs(drive.ask("tap", row=0)["ok"], False)

    def test_the_tag_comes_back_unchanged_with_every_reply(self):
        with Drive() as drive:
            for tag in (1, "a", None, [1, {"b": 2.5}]):
                self.assertEqual(drive.ask("events", tag=tag)["tag"], tag)
                self.assertEqual(drive.ask("dance", tag=tag)["tag"], tag)
            self.assertNotIn("tag", drive.ask("events"))


class Panes(unittest.TestCase):
    def test_push_tap_and_pop_say_where_one_is(self):
        with Drive() as drive:
            self.assertEqual(drive.do("push", pane=ROOT), {"ok": True, "pane": ROOT, "depth": 1})
            self.assertEqual(drive.do("tap", row=0), {"ok": True, "pane": PREFIX, "depth": 2})
            self.assertEqual(drive.do("pop"), {"ok": True, "pane": ROOT, "depth": 1})
            self.assertEqual(drive.do("pop"), {"ok": True, "pane": None, "depth": 0})

    def test_rows_tell_the_bag_the_value_and_where_a_row_leads(self):
        with Drive() as drive:
            drive.do("push", pane=ROOT)
            reply = drive.do("rows")
            self.assertEqual(reply["titleView"], "tallowbyteLogoNavBar.png")
            self.assertEqual(reply["bars"], {"right": {"image": "heart.png", "action": "showLove"}})
            first = reply["rows"][0]
            self.assertEqual(
                {key: first[key] for key in ("index", "section", "row", "kind", "title", "id", "action", "detail", "value", "height")},
                {
                    "index": 0, "section": 0, "row": 0, "kind": "PSLinkCell", "title": "Hide Caller ID Prefix",
                    "id": "Hide Caller ID Prefix", "action": None, "detail": PREFIX, "value": "#31#", "height": 44,
                },
            )
            self.assertEqual(first["properties"]["default"], "#31#")
            summaries = {row["id"]: row["value"] for row in reply["rows"] if row["value"] is not None}
            self.assertEqual(
                summaries,
                {
                    "Hide Caller ID Prefix": "#31#", "Dial Tab Style": "Swipe",
                    "Systemwide Call Style": "Show always", "Button Style": "Style 1 & 1",
                },
            )

    def test_every_row_of_the_first_page_leads_somewhere(self):
        with Drive() as drive:
            drive.do("push", pane=ROOT)
            for row in drive.rows():
                if row["detail"]:
                    self.assertEqual(drive.do("tap", row=row["index"])["depth"], 2)
                    drive.do("pop")

    def test_the_restart_row_applies_the_settings(self):
        with Drive() as drive:
            drive.do("push", pane=ROOT)
            drive.events()
            row = next(row for row in drive.rows() if row["action"] == "applyChangedSettings")
            drive.do("tap", row=row["index"])
            self.assertEqual([event["event"] for event in drive.events()], ["spawn", "wait", "post"])

    def test_the_entrys_badge_decides_on_the_update_row(self):
        with Drive("--entry-badge", "New update available!") as drive:
            drive.do("push", pane=ROOT)
            row = drive.rows()[1]
            self.assertEqual((row["title"], row["action"]), ("Install the new update", "installUpdate"))
            self.assertEqual(row["properties"]["cellClass"], "TBPSColoredTableCell")
            self.assertEqual(row["properties"]["iconImage"], {"image": "gear-white.png"})
            view = drive.do("views", row=0)["view"]
            self.assertEqual(view["separatorInset"], [0, 0, 0, 0])
            self.assertEqual(view["layoutMargins"], [0, 0, 0, 0])
            self.assertIs(view["preservesSuperviewLayoutMargins"], False)
            drive.events()
            drive.do("tap", row=1)
            self.assertEqual(drive.events(), [{"event": "open", "url": "cydia://package/me.orlanvey.quietdial"}])

    def test_the_heart_opens_a_sheet_that_can_be_posted_or_cancelled(self):
        with Drive() as drive:
            drive.do("push", pane=ROOT)
            for result in ("posted", "cancelled"):
                drive.do("bar", side="right")
                self.assertIs(drive.ask("sheet", result="sent")["ok"], False)
                drive.do("sheet", result=result)
                self.assertEqual(
                    drive.events("present", "dismiss"),
                    [
                        {
                            "event": "present", "sheet": "compose", "service": "SLServiceTypeTwitter",
                            "text": "I'm loving #QuietDial from @Tallowbyte!", "images": 0, "from": "pane",
                        },
                        {"event": "dismiss", "sheet": "compose"},
                    ],
                )

    def test_a_new_width_lays_the_pane_out_again(self):
        with Drive("--width", "414") as drive:
            drive.do("push", pane=PREFIX)
            self.assertEqual(drive.do("views", row=1)["view"]["frame"][2], 414)
            drive.do("resize", width=280.5)
            self.assertEqual(drive.do("views", row=1)["view"]["frame"][2], 280.5)

    def test_a_prefix_row_as_its_view_tells_it(self):
        with Drive() as drive:
            drive.do("push", pane=PREFIX)
            view = drive.do("views", row=5)["view"]
            self.assertEqual((view["class"], view["text"], view["detail"]), ("prefixTableCell", "Canada", "*67"))
            self.assertEqual((view["accessory"], view["accessoryView"]), ("disclosure", [0, 0, 24, 11]))
            chosen = drive.do("views", row=34)["view"]
            self.assertEqual(chosen["accessory"], "checkmark")
            self.assertNotIn("accessoryView", chosen)

    def test_two_first_panes_are_two_registrations(self):
        with Drive() as drive:
            drive.do("push", pane=ROOT)
            drive.do("push", pane=ROOT)
            drive.do("push", pane=PREFIX)
            drive.events()
            drive.do("tap", row=5)
            kinds = [event["event"] for event in drive.events()]
            self.assertEqual(kinds, ["write", "post", "write", "post"] + ["spawn", "wait", "post"] * 4)

    def test_the_globals_hold_the_table_in_its_order(self):
        with Drive() as drive:
            reply = drive.do("globals")
            self.assertEqual(len(reply["prefixes"]), 34)
            self.assertEqual(reply["prefixes"][31], ["UK ", "141"])
            self.assertIsNone(reply["availableTweaks"])


class Files(unittest.TestCase):
    def test_the_file_is_a_property_list_below_the_root_and_foreign_keys_stay(self):
        with tempfile.TemporaryDirectory() as root:
            path = root + "/User/Library/Preferences/me.orlanvey.quietDial.plist"
            os.makedirs(os.path.dirname(path))
            foreign = {"number": 2**63 + 1, "real": 0.1, "flag": True, "data": b"\0\1", "list": [1, {"a": "b"}]}
            with open(path, "wb") as file:
                plistlib.dump(foreign, file, fmt=plistlib.FMT_BINARY)
            with Drive("--root", root) as drive:
                drive.do("push", pane=PREFIX)
                drive.do("tap", row=32)
                self.assertEqual(drive.settings()["data"], {"data": "AAE="})
                self.assertEqual(drive.settings()["real"], 0.1)
            with open(path, "rb") as file:
                stored = plistlib.load(file)
            self.assertEqual({key: stored[key] for key in foreign}, foreign)
            self.assertEqual((stored["selectedCountry"], stored["selectedPrefix"]), ("UK ", "141"))

    def test_the_default_root_is_gone_at_the_end(self):
        with tempfile.TemporaryDirectory() as folder:
            environment = {**os.environ, "TMPDIR": folder}
            lines = '{"do":"push","pane":"QDCountryPrefixController"}\n'
            subprocess.run([program(), "drive"], input=lines, text=True, env=environment, check=True, capture_output=True)
            self.assertEqual(os.listdir(folder), [])

    def test_a_file_of_another_kind_counts_as_none_and_is_replaced(self):
        with tempfile.TemporaryDirectory() as root:
            path = root + "/User/Library/Preferences/me.orlanvey.quietDial.plist"
            os.makedirs(os.path.dirname(path))
            with open(path, "wb") as file:
                plistlib.dump(["no", "dictionary"], file)
            with Drive("--root", root) as drive:
                drive.do("push", pane=PREFIX)
                self.assertEqual(sorted(drive.settings()), ["customPrefix", "selectedCountry", "selectedPrefix"])


if __name__ == "__main__":
    unittest.main()
