"""The library itself: found, loaded, called, with a failure as an exception."""
import os
from ctypes import CDLL, byref

from . import declarations


class OruSdkError(Exception):
    """An operation refused, or failed."""

    def __init__(self, operation, code, message):
        super().__init__(f"{operation}: {message} (code {code})")
        self.operation = operation
        self.code = code
        self.message = message


# What the table of the library has no text for.
_OTHER_MESSAGES = {
    declarations.ORUSDK_RC_CONFIGURED_RADAR_CHANNEL: "The configured channel is a radar channel",
    0xFFFFFFFF: "The key is missing or no number",
}

_loaded = None


def library():
    """The loaded library: the one that ORUSDK_LIBRARY names, or the system's."""
    global _loaded
    if _loaded is None:
        loaded = CDLL(os.environ.get("ORUSDK_LIBRARY", "liboruSdk.so.5"))
        for name, (result, arguments) in declarations.OPERATIONS.items():
            operation = getattr(loaded, name)
            operation.restype, operation.argtypes = result, arguments
        _loaded = loaded
    return _loaded


def variable(name):
    """An exported variable, as ctypes sees it: its .value may be set."""
    return declarations.VARIABLES[name].in_dll(library(), name)


def message(code):
    """What a return code says."""
    if code < declarations.ORUSDK_RC_COUNT:
        return variable("oruSdkRcStr")[code].decode()
    return _OTHER_MESSAGES.get(code, "Unknown code")


def plain_call(name, *arguments):
    """Calls an operation whose result is no return code, and gives that result."""
    return getattr(library(), name)(*arguments)


def call(name, *arguments):
    """Calls an operation, and raises OruSdkError for another return code than 0."""
    code = plain_call(name, *arguments)
    if code != 0:
        raise OruSdkError(name, code, message(code))


def _fill(record, fields):
    known = {declared[0] for declared in record._fields_}
    for field, value in fields.items():
        if field not in known:  # ctypes would take it as a new attribute
            raise TypeError(f"{type(record).__name__} has no field {field}")
        setattr(record, field, value)
    return record


def _record(name):
    """An empty record, of the kind that an operation takes."""
    _, arguments = declarations.OPERATIONS[name]
    if len(arguments) != 1 or not issubclass(getattr(arguments[0], "_type_", object), declarations.Structure):
        raise TypeError(f"{name} takes other arguments than one record: use call()")
    return arguments[0]._type_()


def get(item, **fields):
    """Calls oruSdkGet<item> with a record of these fields, and gives the record: get("Mimo", radioIndex=0)."""
    name = "oruSdkGet" + item
    record = _fill(_record(name), fields)
    call(name, byref(record))
    return record


def put(item, **fields):
    """Calls oruSdkSet<item> with a record of these fields; what is left out is 0."""
    name = "oruSdkSet" + item
    call(name, byref(_fill(_record(name), fields)))


def change(item, radioIndex, **fields):
    """Gets a radio's item, changes these fields of it, and sets it."""
    record = _fill(get(item, radioIndex=radioIndex), fields)
    call("oruSdkSet" + item, byref(record))
