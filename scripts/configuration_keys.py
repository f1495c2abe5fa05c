"""Writes docs/configuration-keys.md: every configuration key, from the factory files, the catalogue of oructl
and the comments of the public header.

configuration_keys.py ORUCTL [PAGE]: prints the page, or writes it to a file. A key that one of the three knows
and this script cannot describe is an error.
"""
import json
import re
import subprocess
import sys
from pathlib import Path

import header

SOURCES = Path(__file__).resolve().parents[1]
WSM, AA, RADAR = "/var/wsmDefaults", "/var/1x.conf", "/config/wsmSavedRadarDetectList"
FACTORY = {WSM: "share/wsmDefaults.orig", AA: "share/1x.conf.orig", RADAR: "share/wsmSavedRadarDetectList"}

# Keys that no factory file holds, since their absence says something.
ABSENT = {
    "bss%d.wpaPsk": "text", "bss%d.wepKey.%d": "text", "radiusTimeout": "number", "radiusMaxTries": "number",
    "numRadiusServers": "number", "radiusServer.%d": "text", "radiusPort.%d": "number",
    "radiusSecret.%d": "text", "localMacAclCount": "number", "localMacAcl.%d": "text",
}
# What may stand in keys that share an item of oructl with others, or have none.
VALUES = {
    "dot11Mode": "0 to 9", "ERPFlag": "0, 1", "adminDot11bStaFlag": "0, 1", "dot11gShortSlotTime": "any number",
    "worldModeSupport": "0, 1", "countryCodeFlag": "0, 1", "countryCode": "two letters and one",
    "radio%d.channelSelectionType": "2 fixed, others automatic", "radio%d.configuredChannel": "a channel",
    "radio%d.configuredSecondaryChannel": "a channel, 0", "periodicDfsFlag": "0, 1",
    "periodicDfsTmr": "any number", "periodicMeasFlag": "0, 1",
    "dfsPreferred24GPrimChan": "1 to 14", "dfsPreferred24GSecdChan": "1 to 13",
    "dfsPreferred5GPrimChan": "a channel", "dfsPreferred5GSecdChan": "a channel, 0",
    "dfsPreferredBand": "0 to 2", "radio%d.broadcastRate24GHz": "a rate code",
    "radio%d.broadcastRate5GHz": "a rate code", "radio%d.fixedRate": "a rate code",
    "radio%d.dot11aRates": "octets", "radio%d.dot11bRates": "octets", "radio%d.dot11gRates": "octets",
    "radio%d.dot11nRates": "octets", "radio%d.dot11Protection": "0 to 4", "radio%d.ProtectionMode": "any number",
    "bss%d.radio": "0 to 3, a bit a radio", "bss%d.radioctrl": "0 to 3, a bit a radio",
    "eth%d.pvid": "any number", "eth%d.vid%d": "any number, 0: slot free",
    "bss%d.openAccessEnabled": "true, false", "bss%d.wpaEnabled": "true, false", "bss%d.wepEnabled": "true, false",
    "bss%d.dynamicWepEnabled": "true, false", "bss%d.dynWepEnabled": "true, false",
    "bss%d.mixedIeMode": "1 to 3", "bss%d.wpaAuthTypes": "0, 1", "bss%d.wpaEncTypes": "0 to 2",
    "bss%d.BpRSNFlag": "0 to 3", "bss%d.BpPskFlag": "0, 1", "bss%d.wpsstate": "1, 2",
    "bss%d.wepKeyLen": "5, 13", "bss%d.wepDefaultKey": "1 to 4", "bss%d.wepKey.%d": "pairs of digits",
    "bss%d.sessionTimeout": "0, 30 and more", "bss%d.groupKeyTimeout": "30 and more",
    "bss%d.appinpasswd": "a PIN, up to 64 characters", "bss%d.wpsintf": "up to 9 characters",
    "radiusTimeout": "0 to 19", "radiusMaxTries": "0 to 19", "numRadiusServers": "1 to 3",
    "radiusServer.%d": "up to 63 characters", "radiusPort.%d": "any number", "radiusSecret.%d": "1 to 65 characters",
    "localMacAcl": "0 to 2", "localMacAclCount": "0 to 256", "localMacAcl.%d": "a MAC address",
    "wdsRulesSsId": "up to 32 characters", "ssid": "up to 32 characters", "bssId": "a MAC address",
    "bssNum": "0, 1", "radio%d.adminStatus": "0, 1", "rdrChans": "a list", "InterBSS.radio%d": "any number",
    "bss%d.IntraBSS": "any number",
}


def form(key):
    """A key with %d for its indexes, as sources and catalogue write it."""
    key = re.sub(r"^(radio|bss|eth)\d(?=\.)", r"\1%d", key)
    key = re.sub(r"^InterBSS\.radio\d", "InterBSS.radio%d", key)
    return re.sub(r"(\.vid|wepKey\.|radiusServer\.|radiusPort\.|radiusSecret\.|localMacAcl\.)\d+$", r"\1%d", key)


def factory():
    """{file: {form: [value, ...]}} of the factory files, in their order."""
    files = {}
    for file, path in FACTORY.items():
        keys = files[file] = {}
        for line in (SOURCES / path).read_text().splitlines():
            key, equals, value = line.partition("=")
            if equals and not line.startswith("#"):
                keys.setdefault(form(key), []).append(value)
        if file == AA:
            for key in ABSENT:
                keys.setdefault(key, [])
    return files


def kind(key, values):
    if not values:
        return ABSENT[key]
    if set(values) <= {"true", "false"}:
        return "boolean"
    return "number" if all(re.fullmatch(r"-?\d+", value) for value in values) else "text"


def default(values):
    """The factory value, or one for each index when they differ."""
    shown = [f"`{value}`" if value else "empty" for value in values]
    if not shown:
        return "absent"
    return shown[0] if len(set(shown)) == 1 else ", ".join(shown)


def field_values(field):
    if field["kind"] in ("text", "bytes", "secret"):
        shortest = "" if field["min"] == field["max"] else f"{field['min']} to "
        return f"{shortest}{field['max']} characters"
    if field["kind"] in ("number", "switch", "choice"):
        if field["min"] == -2**31:
            return "any number"
        few = field["max"] - field["min"] == 1
        unit = f" {field['unit']}" if field["unit"] else ""
        return f"{field['min']}{', ' if few else ' to '}{field['max']}{unit}"
    return field["kind"]


def catalogue_values(items):
    """{form: what may stand in it}, for items whose keys and fields belong together one to one."""
    values = {}
    for item in items:
        if len(item["keys"]) == len(item["fields"]):
            for key, field in zip(item["keys"], item["fields"]):
                values.setdefault(form(key), field_values(field))
    return values


def named_keys(text):
    return [form(key) for key in re.findall(r'"([A-Za-z][\w.%]*)"', text)]


READS, WRITES = 0, 1


def operations(known):
    """{form: (readers, writers)}, as the comments of the header tell."""
    found = {key: ([], []) for key in known}
    everything = {o.name: o for o in header.read(SOURCES / "include/oruSdk.h").operations}
    for operation in everything.values():
        if operation.name == "oruSdkResetToBss":
            continue  # the page says it of all keys at once
        text = operation.text
        for other in re.findall(r"[Kk]eys (?:are those of|as in) (\w+)", text):
            text = everything[other].text.partition(" Reads ")[0] + " " + text
        writes = "8" in dict(operation.retvals)
        for other in re.findall(r"what (\w+)\(\) reads", text):
            text += ". Reads " + everything[other].text.partition(" Reads ")[2]
        checked = " ".join(words for code, words in operation.retvals if code in ("26", "42"))
        _add(found, named_keys(checked), READS, operation.name)
        for sentence in text.split(". "):
            # A writer's sentence tells what it writes, and behind "reads" or "needs" what it looks at.
            looks = re.search(r"\b[Rr]eads\b|\bneeds\b(?!.*\bsets\b)", sentence) if writes else re.match("", sentence)
            at = looks.start() if looks else len(sentence)
            conditions = named_keys(" ".join(re.findall(r'when ("[^"]*")', sentence)))
            _add(found, named_keys(sentence[at:]) + conditions, READS, operation.name)
            _add(found, [key for key in named_keys(sentence[:at]) if key not in conditions], WRITES, operation.name)
    return found


def _add(found, keys, side, name):
    for key in keys:
        if key in found and name not in found[key][side]:
            found[key][side].append(name)


def readers(users, file, key):
    """Who reads a key and does not write it. The SSID stands in both files and is read from the first."""
    return [] if (file, key) == (AA, "bss%d.ssId") else [name for name in users[0] if name not in users[1]]


def short(names):
    return ", ".join(f"`{name.removeprefix('oruSdk')}`" for name in names) or "-"


def rows(items):
    catalogue = catalogue_values(items)
    files = factory()
    known = {key for keys in files.values() for key in keys}
    wanted = {form(key) for item in items for key in item["keys"] + item["reads"]}
    if wanted - known:
        raise SystemExit(f"keys that no factory file holds: {sorted(wanted - known)}")
    users = operations(known)
    for file, keys in files.items():
        yield file, [(key, kind(key, values), VALUES.get(key) or catalogue[key], default(values),
                      short(users[key][1]), short(readers(users[key], file, key)))
                     for key, values in keys.items()]


def page(items):
    lines = ["# Configuration keys", "",
             "Made by `scripts/configuration_keys.py` from the factory files in `share/`, the items of `oructl` and the",
             "comments of [oruSdk.h](../include/oruSdk.h); a test compares. `%d` stands for a radio (0, 1), a BSS (0 to 3),",
             "an Ethernet port (0, 1), or a place in a list. Values are those that the operations store; services may take",
             "others. Default: what the factory file holds, for each index where they differ. Operations are named without",
             "their `oruSdk`. `ResetToBss` and `ResetToDefaults` write factory values."]
    for file, table in rows(items):
        lines += ["", f"## {file}", "", "| key | type | values | default | written by | read by |",
                  "|---|---|---|---|---|---|"]
        lines += ["| `" + row[0] + "` | " + " | ".join(row[1:]) + " |" for row in table]
    return "\n".join(lines) + "\n"


def main():
    listed = subprocess.run([sys.argv[1], "--json", "list"], capture_output=True, text=True, check=True)
    text = page(json.loads(listed.stdout)["items"])
    if len(sys.argv) > 2:
        Path(sys.argv[2]).write_text(text)
    else:
        sys.stdout.write(text)


if __name__ == "__main__":
    main()
