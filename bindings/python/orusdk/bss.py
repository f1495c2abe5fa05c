"""Settings of a BSS: SSID, security, WPS. They take effect with commit(), unless they say otherwise."""
from ctypes import byref, c_uint32, create_string_buffer
from dataclasses import dataclass
from enum import IntEnum

from .library import call


class Wpa(IntEnum):
    WPA = 1
    WPA2 = 2
    BOTH = 3


class Authentication(IntEnum):
    RADIUS = 0
    PRE_SHARED_KEY = 1


@dataclass(frozen=True)
class Security:
    """What protects a BSS; several of open, wep and wpa can't be on."""
    open: bool
    wep: bool
    wpa: int  # 0 off, or a Wpa
    authentication: int = 0  # with WPA: an Authentication
    cipher: int = 0  # with WPA: 0 AES


def ssid(bss):
    """The SSID, as bytes: it need not be text."""
    text, length = create_string_buffer(33), c_uint32()
    call("oruSdkGetSsid", bss, text, byref(length))
    return text.raw[:length.value]


def set_ssid(bss, name):
    """Sets the SSID: a text (stored as UTF-8) or bytes, 32 at most."""
    name = name.encode() if isinstance(name, str) else bytes(name)
    if len(name) > 32 or b"\0" in name:
        raise ValueError("an SSID has at most 32 bytes, and no NUL")
    call("oruSdkSetSsid", bss, name)


def security(bss):
    is_open, wep, wpa, authentication, cipher = (c_uint32() for _ in range(5))
    call("oruSdkGetSecModeOpen", bss, byref(is_open))
    length, default = c_uint32(), c_uint32()
    keys = [create_string_buffer(27) for _ in range(4)]
    call("oruSdkGetSecModeWep", bss, byref(wep), byref(length), byref(default), *keys)
    call("oruSdkGetSecModeWpa", bss, byref(wpa), byref(authentication), byref(cipher))
    return Security(bool(is_open.value), bool(wep.value), wpa.value, authentication.value, cipher.value)


def _switch_off(bss, open_too):
    if open_too:
        call("oruSdkSetSecModeOpen", bss, 0)
    call("oruSdkSetSecModeWep", bss, 0, 13, 1, None, None, None, None)


def set_open(bss):
    """Opens a BSS to everybody; WEP and WPA go off. Several saves: a failure leaves those before it."""
    _switch_off(bss, open_too=False)
    call("oruSdkSetSecModeWpa", bss, 0, 0, 0)
    call("oruSdkSetSecModeOpen", bss, 1)


def set_wpa(bss, key, mode=Wpa.WPA2, cipher=0):
    """WPA with a pre-shared key; the other modes go off. Several saves: a failure leaves those before it.

    The key is 8 to 63 characters, or 64 hexadecimal digits. It is never part of an exception.
    """
    _switch_off(bss, open_too=True)
    call("oruSdkSetSecModeWpa", bss, mode, Authentication.PRE_SHARED_KEY, cipher)
    call("oruSdkSetWpaPsk", bss, key.encode())


def wps(bss):
    """Whether Wi-Fi Protected Setup is on."""
    enabled = c_uint32()
    call("oruSdkGetWsc", bss, byref(enabled))
    return enabled.value != 0


def set_wps(bss, on):
    call("oruSdkSetWsc", bss, int(on))


def wps_push_button(radio, bss):
    """Starts an enrollment by push button, at once."""
    call("sendWscEnroll", 1, radio, bss, b"")


def wps_pin(radio, bss, pin):
    """Starts the enrollment of a station by its PIN, at once."""
    call("sendWscEnroll", 0, radio, bss, pin.encode())


def wps_status(radio, bss):
    """WSM's result of the last enrollment; None when it did not answer."""
    silent = 0xFFFFFFFF
    result = c_uint32(silent)
    call("oruSdkGetWscStatus", radio, bss, byref(result))
    return None if result.value == silent else result.value
