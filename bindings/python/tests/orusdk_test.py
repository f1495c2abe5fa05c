"""The Python bindings, against a simulated access point."""
import os
import re
import subprocess
import sys
import unittest
from ctypes import sizeof
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[3]
for folder in ("tests/support", "scripts", "bindings/python"):
    sys.path.insert(0, str(SOURCES / folder))
import accesspoint  # noqa: E402
import header  # noqa: E402
import orusdk  # noqa: E402
import python_declarations  # noqa: E402
from orusdk import declarations  # noqa: E402


def setUpModule():
    global box
    box = accesspoint.AccessPoint()
    unittest.addModuleCleanup(box.close)
    os.environ |= box.environment | {"ORUSDK_LIBRARY": str(accesspoint.BUILD / "src/liboruSdk.so")}


def stored(file, key):
    return re.search(rf"^{re.escape(key)}=(.*)$", box.file(file).read_text(), re.M)[1]


class Declarations(unittest.TestCase):
    maxDiff = None

    def test_are_those_of_the_header(self):
        """Mend it with: scripts/python_declarations.py bindings/python/orusdk/declarations.py"""
        public = header.read(SOURCES / "include/oruSdk.h")
        self.assertEqual(python_declarations.module(public).splitlines(),
                         Path(declarations.__file__).read_text().splitlines())

    def test_give_records_the_size_that_the_compiler_gives(self):
        records = [record.name for record in header.read(SOURCES / "include/oruSdk.h").records]
        source = '#include "oruSdk.h"\n#include <stdio.h>\nint main(void) {\n' + "".join(
            f'printf("%zu\\n", sizeof({name}));\n' for name in records) + "return 0; }\n"
        program = box.file("/sizes")
        subprocess.run(["c++", "-I", SOURCES / "include", "-x", "c++", "-", "-o", program], input=source, text=True,
                       check=True)
        sizes = subprocess.run([program], capture_output=True, text=True, check=True).stdout.split()
        self.assertEqual(len(records), len(sizes))
        self.assertEqual(dict(zip(records, map(int, sizes))),
                         {name: sizeof(getattr(declarations, name)) for name in records})


class AccessPointTest(unittest.TestCase):
    def setUp(self):
        orusdk.reset()


class Library(AccessPointTest):
    def test_tells_its_version(self):
        self.assertEqual("5.0.600.16", orusdk.version())

    def test_raises_what_an_operation_refuses(self):
        with self.assertRaises(orusdk.OruSdkError) as caught:
            orusdk.put("Mimo", radioIndex=2)
        self.assertEqual((3, "Invalid radio ID", "oruSdkSetMimo"),
                         (caught.exception.code, caught.exception.message, caught.exception.operation))

    def test_has_messages_for_codes_outside_the_table(self):
        self.assertEqual("The configured channel is a radar channel", orusdk.message(122))
        self.assertEqual("Unknown code", orusdk.message(4711))

    def test_refuses_a_field_that_a_record_does_not_have(self):
        with self.assertRaises(TypeError):
            orusdk.put("Mimo", radioIndx=0)

    def test_changes_one_field_and_leaves_the_others(self):
        orusdk.change("BeaconParam", 1, dtimPeriod=3)
        self.assertEqual(("100", "3"), tuple(stored("/var/wsmDefaults", f"radio1.{key}Period")
                                             for key in ("beacon", "dtim")))

    def test_changes_a_variable_of_the_library(self):
        self.assertEqual(5000002, orusdk.variable("port").value)


class Radio(AccessPointTest):
    def test_switch_is_set_and_read_back(self):
        self.assertTrue(orusdk.switch("Mimo", 0))
        orusdk.set_switch("Mimo", 0, False)
        self.assertFalse(orusdk.switch("Mimo", 0))
        self.assertEqual("0", stored("/var/wsmDefaults", "mimoFlag"))

    def test_option_out_of_range_is_refused_and_not_stored(self):
        with self.assertRaises(orusdk.OruSdkError) as caught:
            orusdk.set_option("TxPower", 0, 3)
        self.assertEqual(47, caught.exception.code)
        self.assertEqual(0, orusdk.option("TxPower", 0))

    def test_channel_is_fixed_or_automatic(self):
        orusdk.set_channel(1, 44)
        self.assertEqual(orusdk.Channel(44), orusdk.channel(1))
        orusdk.set_automatic_channel(0, interval=600)
        self.assertEqual(orusdk.Channel(0, 0, True, 600), orusdk.channel(0))
        orusdk.set_automatic_channel(0)
        self.assertEqual(orusdk.Channel(0), orusdk.channel(0))

    def test_radar_channel_is_refused_while_radar_is_detected(self):
        with self.assertRaises(orusdk.OruSdkError) as caught:
            orusdk.set_channel(1, 52)
        self.assertEqual(120, caught.exception.code)


class Bss(AccessPointTest):
    def test_ssid_holds_any_bytes(self):
        for name, expected in (("Lobby", b"Lobby"), ("Café", "Café".encode()), (b"\xff\x01 \"=", b"\xff\x01 \"="),
                               ("", b""), ("x" * 32, b"x" * 32)):
            orusdk.set_ssid(2, name)
            self.assertEqual(expected, orusdk.ssid(2))

    def test_ssid_that_would_be_cut_is_refused(self):
        for name in ("x" * 33, "é" * 17, b"a\0b"):
            with self.assertRaises(ValueError):
                orusdk.set_ssid(2, name)
        self.assertEqual(b"oru-2", orusdk.ssid(2))

    def test_wpa_replaces_open_access_and_back(self):
        self.assertEqual(orusdk.Security(open=True, wep=False, wpa=0), orusdk.security(1))
        orusdk.set_wpa(1, "correct horse", orusdk.Wpa.BOTH)
        self.assertEqual(orusdk.Security(False, False, orusdk.Wpa.BOTH, orusdk.Authentication.PRE_SHARED_KEY, 0),
                         orusdk.security(1))
        self.assertEqual("correct horse", stored("/var/1x.conf", "bss1.wpaPsk").strip('"'))
        orusdk.set_open(1)
        self.assertEqual(orusdk.Security(open=True, wep=False, wpa=0), orusdk.security(1))

    def test_refused_key_is_not_in_the_exception(self):
        with self.assertRaises(orusdk.OruSdkError) as caught:
            orusdk.set_wpa(1, "short1")
        self.assertEqual(31, caught.exception.code)
        self.assertNotIn("short1", str(caught.exception))

    def test_wps_is_switched(self):
        orusdk.set_wps(3, True)
        self.assertTrue(orusdk.wps(3))


class Status(AccessPointTest):
    def test_commit_reaches_the_services(self):
        orusdk.set_ssid(0, "new name")
        orusdk.commit()
        self.assertEqual([], orusdk.stations(0, 0))

    def test_stations_come_with_their_counters_and_go(self):
        mac = "02:00:00:00:00:0a"
        box.control(f"station add 0 {mac} 0")
        self.assertEqual([mac], [station.mac for station in orusdk.stations(0, 0)])
        counters = orusdk.station_counters(0, mac)
        self.assertTrue(counters and all(isinstance(value, int) for value in counters.values()), counters)
        orusdk.disassociate(mac)
        self.assertEqual([], orusdk.stations(0, 0))

    def test_radio_has_counters(self):
        self.assertTrue(orusdk.radio_counters(1))

    def test_networks_are_heard(self):
        networks = orusdk.networks()
        self.assertTrue(networks)
        for network in networks:
            self.assertRegex(network.bssid, "^([0-9a-f]{2}:){5}[0-9a-f]{2}$")

    def test_enrollment_begins(self):
        orusdk.wps_push_button(0, 0)
        self.assertEqual(1, orusdk.wps_status(0, 0))

    def test_radio_goes_down_at_once(self):
        orusdk.set_radio_up(0, False)
        self.assertFalse(orusdk.get("AdminStatus", radioIndex=0).activationFlag)
        orusdk.set_radio_up(0, True)


class WithoutServices(AccessPointTest):
    def test_live_queries_fail_with_their_code(self):
        orusdk.variable("port").value = 4711
        self.addCleanup(setattr, orusdk.variable("port"), "value", 5000002)
        with self.assertRaises(orusdk.OruSdkError) as caught:
            orusdk.stations(0, 0)
        self.assertEqual(48, caught.exception.code)


if __name__ == "__main__":
    unittest.main()
