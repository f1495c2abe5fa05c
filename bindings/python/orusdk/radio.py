"""Settings of a radio: switches, options, its channel. They take effect with commit()."""
from dataclasses import dataclass

from .library import get, put


def switch(item, radio):
    """Whether a switch is on: switch("Mimo", 0)."""
    return get(item, radioIndex=radio).activationFlag != 0


def set_switch(item, radio, on):
    put(item, radioIndex=radio, activationFlag=int(on))


def option(item, radio):
    """The number of an option: option("TxPower", 0)."""
    return get(item, radioIndex=radio).featureOptions


def set_option(item, radio, number):
    put(item, radioIndex=radio, featureOptions=number)


@dataclass(frozen=True)
class Channel:
    """How a radio comes to its channel."""
    channel: int  # 0: selected by the radio
    secondary: int = 0  # 40 MHz partner, 0 for none
    periodic: bool = False  # selected again and again
    interval: int = 0  # between two such selections


def channel(radio):
    param = get("ChannelParam", radioIndex=radio)
    if param.channel != 0:
        return Channel(param.channel, param.secondaryChannel)
    periodic = param.autoSelMode == 1
    return Channel(0, 0, periodic, param.periodicDfsTimer if periodic else 0)


def set_channel(radio, number, secondary=0):
    put("ChannelParam", radioIndex=radio, channel=number, secondaryChannel=secondary)


def set_automatic_channel(radio, interval=None):
    """Leaves the channel to the radio: once, or with an interval again and again."""
    put("ChannelParam", radioIndex=radio, autoSelMode=0 if interval is None else 1,
        periodicDfsTimer=interval or 0)


def set_radio_up(radio, up):
    """Switches a radio on or off, at once."""
    put("AdminStatus", radioIndex=radio, activationFlag=int(up))
