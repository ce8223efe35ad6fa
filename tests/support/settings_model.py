"""What the settings file and the list of events have to be; knows nothing of the program's code."""

from drive import APPLIED, CHANGED, SETTINGS

# A first page asks the maker's catalogue whenever it appears; no server answers in these tests.
FETCH = {
    "event": "fetch",
    "url": "http://tweaks.tallowbyte.example/tweaks/tweaks.php?id=me.orlanvey.quietdial&list=1",
    "ok": False,
}


class SettingsModel:
    def __init__(self, stored: dict, first_panes: int):
        self.file = dict(stored)
        self.first_panes = first_panes
        self.events = []
        self.fetches = first_panes

    def first_page_appears(self):
        if self.first_panes:
            self.fetches += 1

    def check(self, test, drive):
        """What is asked for in the background has no place among what happens one after another."""
        happened = drive.events()
        test.assertEqual([event for event in happened if event["event"] != "fetch"], self.take_events())
        test.assertEqual([event for event in happened if event["event"] == "fetch"], [FETCH] * self.fetches)
        self.fetches = 0
        test.assertEqual(drive.settings(), self.file)

    def writes(self, key, value):
        self.file[key] = value
        self.events.append({"event": "write", "path": SETTINGS, "settings": dict(self.file), "ok": True})
        self.events.append({"event": "post", "centre": "darwin", "name": CHANGED})

    def take_events(self) -> list:
        """What was written, then, once the turn is over, what each first pane does for each post."""
        posts = sum(event["event"] == "post" for event in self.events)
        applied = [
            {"event": "spawn", "path": "/usr/bin/killall", "arguments": ["killall", "-9", "MobilePhone", "InCallService"], "environment": None},
            {"event": "wait", "options": 4},
            {"event": "post", "centre": "notify", "name": APPLIED},
        ]
        events, self.events = self.events + applied * (posts * self.first_panes), []
        return events
