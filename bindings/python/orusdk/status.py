"""What the access point's services say now, and what makes them act."""
from ctypes import byref, c_uint8
from dataclasses import dataclass

from . import declarations
from .library import call, plain_call


@dataclass(frozen=True)
class Station:
    id: int
    mac: str


@dataclass(frozen=True)
class Network:
    bssid: str
    ssid: bytes


def _number(octets):
    return int.from_bytes(bytes(octets), "big")


def _mac(text):
    return bytes(int(pair, 16) for pair in text.split(":"))


def version():
    return plain_call("oruSdkGetVersion").decode()


def commit():
    """Checks the security of all BSSes, and makes the services take what is stored."""
    call("oruSdkCommitAll")


def commit_radio():
    """Makes WSM take what is stored."""
    call("oruSdkCommitRadio")


def reset():
    """Stores factory values, all of them."""
    call("oruSdkResetToDefaults")


def reset_bss(bss):
    call("oruSdkResetToBss", bss)


def stations(radio, bss):
    """The stations of a BSS."""
    param = declarations.OruSdkStationParam()
    param.radioIndex[:] = radio.to_bytes(2, "big")
    param.bssIndex[:] = bss.to_bytes(2, "big")
    call("oruSdkGetStationParam", byref(param))
    return [Station(_number(station.staId), station.macAddr.decode())
            for station in param.stations[:_number(param.numStations)]]


def networks():
    """The networks that the radios hear."""
    param = declarations.OruSdkScanlistParam()
    call("oruSdkGetScanlistParam", byref(param))
    return [Network(entry.bssid.decode(), entry.ssid) for entry in param.entries[:_number(param.numEntries)]]


def _counters(text):
    words = text.decode(errors="replace").split()
    return {name: int(value) for name, value in zip(words[::2], words[1::2]) if value.lstrip("-").isdigit()}


def radio_counters(radio):
    """The counters of a radio by their names."""
    param = declarations.OruSdkRadioStatsParam(selector1=radio)
    call("oruSdkGetRadioStats", byref(param))
    return _counters(param.statsStr)


def station_counters(radio, mac):
    """The counters of a station, "00:11:22:aa:bb:cc", by their names."""
    param = declarations.OruSdkStaStatsParam(selector1=radio)
    param.macAddr[:] = _mac(mac)
    call("oruSdkGetStaStats", byref(param))
    return _counters(param.statsStr)


def disassociate(mac):
    """Asks WSM to disassociate a station, at once."""
    call("sendDisAssocReq", (c_uint8 * 6)(*_mac(mac)))
