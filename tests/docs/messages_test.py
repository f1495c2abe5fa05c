"""The examples of docs/messages.md: what the library sends, and what the simulated services answer.

With ORU_UPDATE_GOLDEN=1 the page is written anew, to be looked at as a difference.
"""
import os
import queue
import re
import shutil
import socket
import sys
import threading
import unittest
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[2]
for folder in ("tests/support", "bindings/python"):
    sys.path.insert(0, str(SOURCES / folder))
import accesspoint  # noqa: E402
import orusdk  # noqa: E402

PAGE = SOURCES / "docs/messages.md"
NOTICES = (268, 10498)  # nobody answers them
NEIGHBOURS = 6  # of the simulated world
STATION = "02:00:00:00:00:0a"


class Recorder:
    """Stands between the library and the services, and keeps what passes."""

    def __init__(self, box):
        self.root = Path(box.root + ".recorder")
        for folder in ("var", "config"):
            shutil.copytree(box.file("/" + folder), self.root / folder)
        os.makedirs(self.root / "run/oru")
        self.packets = queue.Queue()
        self._listeners = []
        for name in ("5000002.1001", "5000003.1001"):
            listener = socket.socket(socket.AF_UNIX, socket.SOCK_SEQPACKET)
            listener.bind(str(self.root / "run/oru" / name))
            listener.listen()
            self._listeners.append(listener)
            threading.Thread(target=self._serve, args=(listener, str(box.file("/run/oru/" + name))), daemon=True).start()

    def _serve(self, listener, service):
        while True:
            try:
                caller, _ = listener.accept()
            except OSError:
                return
            with caller, socket.socket(socket.AF_UNIX, socket.SOCK_SEQPACKET) as behind:
                request = caller.recv(65536)
                self.packets.put((">", request))
                behind.connect(service)
                behind.send(request)
                if int.from_bytes(request[:2], "big") not in NOTICES:
                    reply = behind.recv(65536)
                    self.packets.put(("<", reply))
                    caller.send(reply)

    def close(self):
        for listener in self._listeners:
            listener.shutdown(socket.SHUT_RDWR)
            listener.close()
        shutil.rmtree(self.root)


class Reader:
    """Takes a packet apart, a line for each piece, without help of the library."""

    REQUESTS = {256: "4", 258: "4", 260: "4", 262: "4", 264: "4", 266: "4", 273: "2", 275: "2m", 278: "422",
                280: "22", 283: "4"}
    WIDTH = 44

    def __init__(self, direction, packet):
        self.direction, self.packet, self.at, self.lines = direction, packet, 0, []
        self.type = self.number(2)
        length = self.number(2)
        assert length == len(packet)
        self.add(0, f"message {self.type}, {length} bytes")
        if direction == ">":
            for size in self.REQUESTS.get(self.type, ""):
                self.fixed(size)
            self.elements()
        elif self.type == 267:
            self.radios()
        elif self.type in (274, 276):
            self.counters()
        else:
            if self.type != 281:
                self.fixed("4")
            self.elements()

    def number(self, size):
        self.at += size
        return int.from_bytes(self.packet[self.at - size:self.at], "big")

    def add(self, start, words):
        shown = self.packet[start:self.at].hex(" ", -2) if self.at - start > 12 else self.packet[start:self.at].hex(" ")
        self.lines.append(f"{self.direction} {shown:<{self.WIDTH}} {words}")

    def fixed(self, size):
        start = self.at
        if size == "m":
            self.at += 6
            return self.add(start, self.packet[start:self.at].hex(":"))
        return self.add(start, f"{self.number(int(size))}, {int(size) * 8} bits")

    def elements(self):
        while self.at < len(self.packet):
            start = self.at
            kind, element, length = self.number(2), self.number(2), self.number(2)
            self.at += length
            value = self.packet[self.at - length:self.at]
            words = value.hex(":") if kind == 12 else str(int.from_bytes(value, "big"))
            self.add(start, f"element {element}: " + (f'"{value.decode()}"' if kind == 8 else words))

    def radios(self):
        while self.at < len(self.packet):
            for size, words in ((3, "country and environment"), (12, "attr1 to attr5"), (9, "attr6 to attr9"),
                                (4, "bands"), (1, "channels that follow")):
                start = self.at
                self.at += size
                self.add(start, words)
            start = self.at
            self.at += self.packet[start - 1]
            self.add(start, f"channels {self.packet[start]} to {self.packet[self.at - 1]}")

    def counters(self):
        names = self.packet[4:].decode().split()[::2]
        self.lines = [f"< {self.packet[:2].hex(' ')} ..", f"  text: {' . '.join(names)} ."]


def run(what):
    """The two packets of one call, in words."""
    what()
    packets = [recorder.packets.get(timeout=10) for _ in range(2)]
    if packets[1][0] == ">":  # notices to two services, which may arrive in either order
        packets.sort(reverse=True)
    lines = []
    for direction, packet in packets:
        piece = Reader(direction, packet).lines
        if len(piece) > 24:
            piece = piece[:6] + [f"{direction} .."]
        lines += piece
    return lines


def all_networks():
    """Asks until all neighbours are heard at once, which chance decides each second."""
    while len(orusdk.networks()) < NEIGHBOURS:
        while not recorder.packets.empty():
            recorder.packets.get()
        box.control("advance 1000")


# In the order of the page. What a call changes, those behind it see.
EXAMPLES = {
    "oruSdkGetRadioParam": lambda: orusdk.call("oruSdkGetRadioParam", orusdk.declarations.OruSdkRadioParam()),
    "oruSdkGetStationParam": lambda: orusdk.stations(0, 0),
    "oruSdkGetScanlistParam": all_networks,
    "oruSdkGetBssListParam": lambda: orusdk.call("oruSdkGetBssListParam", orusdk.declarations.OruSdkBssListParam()),
    "oruSdkGetRadioInfo": lambda: orusdk.call("oruSdkGetRadioInfo", orusdk.declarations.OruSdkRadioInfo()),
    "oruSdkGetRadioStats": lambda: orusdk.radio_counters(1),
    "oruSdkGetStaStats": lambda: orusdk.station_counters(0, STATION),
    "sendDisAssocReq": lambda: orusdk.disassociate(STATION),
    "oruSdkSetAdminStatus": lambda: orusdk.set_radio_up(1, False),
    "oruSdkCommitAll": orusdk.commit,
    "sendWscEnroll, push button": lambda: orusdk.wps_push_button(0, 0),
    "oruSdkGetWscStatus": lambda: orusdk.wps_status(0, 0),
    "sendWscEnroll, PIN": lambda: orusdk.wps_pin(0, 0, "12345670"),
    "oruSdkSetDevicePin": lambda: orusdk.call("oruSdkSetDevicePin", 0, 0, b"12345670"),
    "oruSdkGenPassword": lambda: orusdk.call("oruSdkGenPassword", 0, 0),
}


def setUpModule():
    global box, recorder
    box = accesspoint.AccessPoint()
    unittest.addModuleCleanup(box.close)
    box.control(f"station add 0 {STATION} 0")
    recorder = Recorder(box)
    unittest.addModuleCleanup(recorder.close)
    os.environ |= box.environment | {"ORU_ROOT": str(recorder.root),
                                     "ORUSDK_LIBRARY": str(accesspoint.BUILD / "src/liboruSdk.so")}


class Messages(unittest.TestCase):
    maxDiff = None

    def test_of_the_page_are_those_on_the_wire(self):
        page = PAGE.read_text()
        seen = {}

        def block(match):
            name = match[1]
            lines = seen[name] = run(EXAMPLES[name])
            return "```\n" + "\n".join([name, *(line.rstrip() for line in lines)]) + "\n```"

        now = re.sub(r"```\n(\w*(?:send|oruSdk)[\w, ]+)\n(?:[^`]*\n)?```", block, page)
        self.assertEqual(list(EXAMPLES), list(seen))
        if os.environ.get("ORU_UPDATE_GOLDEN"):
            PAGE.write_text(now)
        self.assertEqual(now.splitlines(), page.splitlines())


if __name__ == "__main__":
    unittest.main()
