"""oruSdk from Python: every operation of the public header, and the common ones as Python has them."""
from . import declarations
from .bss import (Authentication, Security, Wpa, security, set_open, set_ssid, set_wpa, set_wps, ssid, wps, wps_pin,
                  wps_push_button, wps_status)
from .library import OruSdkError, call, change, get, message, plain_call, put, variable
from .radio import (Channel, channel, option, set_automatic_channel, set_channel, set_option, set_radio_up, set_switch,
                    switch)
from .status import (Network, Station, commit, commit_radio, disassociate, networks, radio_counters, reset, reset_bss,
                     station_counters, stations, version)

__all__ = [name for name in dir() if not name.startswith("_")]
