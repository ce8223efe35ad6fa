"""The window follows what the user prefers in the whole desktop, and what is asked of it."""

import tempfile
import unittest

import desktop

LIGHT_PAGE = (239, 239, 244)
DARK_PAGE = (0, 0, 0)

PORTAL = """
<node><interface name="org.freedesktop.portal.Settings">
  <method name="Read">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
  </method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>
"""


class Portal:
    """Stands in for the desktop's portal."""

    def __init__(self, **settings):
        from gi.repository import Gio, GLib
        self.settings = settings
        self.asked = set()
        self._variant = GLib.Variant
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(PORTAL).interfaces[0]
        self._object = self._bus.register_object("/org/freedesktop/portal/desktop", interface,
                                                 self._answer, None, None)
        self._context = GLib.MainContext.default()
        owned = []
        self._name = Gio.bus_own_name_on_connection(
            self._bus, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE,
            lambda *_: owned.append(True), None)
        self._own = Gio.bus_unown_name
        desktop.wait_for(lambda: self.turn() or owned, "the portal's name")

    def turn(self):
        """Answers what is asked; needed wherever one waits for the window."""
        while self._context.iteration(False):
            pass

    def _answer(self, _bus, _sender, _path, _interface, _method, arguments, call):
        _, key = arguments.unpack()
        self.asked.add(key)
        if key not in self.settings:
            call.return_dbus_error("org.freedesktop.portal.Error.NotFound", key)
            return
        value = self._variant("v", self.settings[key])
        call.return_value(self._variant("(v)", (value,)))

    def change(self, key, value):
        self.settings[key] = value
        self._bus.emit_signal(None, "/org/freedesktop/portal/desktop",
                              "org.freedesktop.portal.Settings", "SettingChanged",
                              self._variant("(ssv)", ("org.freedesktop.appearance", key, value)))

    def close(self):
        self._own(self._name)
        self._bus.unregister_object(self._object)


class DesktopPreference(unittest.TestCase):
    def start(self, *arguments, **settings):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.portal = Portal(**settings)
        self.addCleanup(self.portal.close)
        self.application = desktop.Application(folder.name, *arguments)
        self.addCleanup(self.application.close)
        x, y, _, height = self.application.place(self.application.wait_for("panel", ""))
        self.spot = x + 5, y + height - 20
        self.row = x + 5, y + 44 + 35 + 22

    def wait_for_page(self, color):
        # The screen is black where there is no window yet, but not where a row's text stands.
        def shown():
            self.portal.turn()
            return desktop.pixel(*self.spot) == color and desktop.pixel(*self.row) != (0, 0, 0)
        desktop.wait_for(shown, f"the page to be {color}")

    def number(self, value):
        from gi.repository import GLib
        return GLib.Variant("u", value)

    def test_a_dark_desktop_has_a_dark_window(self):
        self.start(**{"color-scheme": self.number(1)})
        self.wait_for_page(DARK_PAGE)

    def test_what_is_asked_for_on_the_command_line_holds_over_the_desktop(self):
        self.start("--appearance", "light", **{"color-scheme": self.number(1)})

        def asked():
            self.portal.turn()
            return "color-scheme" in self.portal.asked
        desktop.wait_for(asked, "the window to ask for the desktop's preference")
        self.portal.change("color-scheme", self.number(1))
        self.wait_for_page(LIGHT_PAGE)

    def test_a_change_of_the_desktops_preference_is_followed(self):
        self.start(**{"color-scheme": self.number(2)})
        self.wait_for_page(LIGHT_PAGE)
        self.portal.change("color-scheme", self.number(1))
        self.wait_for_page(DARK_PAGE)
        self.portal.change("color-scheme", self.number(0))
        self.wait_for_page(LIGHT_PAGE)

    def test_without_a_preference_the_window_is_light(self):
        self.start(**{"color-scheme": self.number(0)})
        self.wait_for_page(LIGHT_PAGE)


if __name__ == "__main__":
    desktop.in_own_desktop()
    unittest.main()
