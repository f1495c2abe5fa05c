"""The public header as ctypes sees it: constants, records, operations.

Made by scripts/python_declarations.py from include/oruSdk.h; a test compares.
"""
from ctypes import (POINTER, Structure, c_char, c_char_p, c_int32, c_uint8, c_uint16, c_uint32)

ORUSDK_RC_COUNT = 122
ORUSDK_RC_OK = 0
ORUSDK_RC_ERROR = 1
ORUSDK_RC_NULL_POINTER = 2
ORUSDK_RC_RADIO_ID = 3
ORUSDK_RC_ACK_MODE = 4
ORUSDK_RC_AUTO_ADAPTATION = 5
ORUSDK_RC_RATE_CODE = 6
ORUSDK_RC_FILE_READ = 7
ORUSDK_RC_FILE_WRITE = 8
ORUSDK_RC_BEACON_PERIOD = 9
ORUSDK_RC_DTIM_PERIOD = 10
ORUSDK_RC_FRAG_THRESHOLD = 11
ORUSDK_RC_RTS_THRESHOLD = 12
ORUSDK_RC_SHORT_RETRY_LIMIT = 13
ORUSDK_RC_LONG_RETRY_LIMIT = 14
ORUSDK_RC_MULTI_DOMAIN = 15
ORUSDK_RC_COUNTRY_CODE = 16
ORUSDK_RC_PREAMBLE = 17
ORUSDK_RC_MODE_24GHZ = 18
ORUSDK_RC_CHANNEL = 19
ORUSDK_RC_AUTO_SELECT_MODE = 20
ORUSDK_RC_DOT11_MODE = 21
ORUSDK_RC_RATE_SET = 22
ORUSDK_RC_SSID_LENGTH = 23
ORUSDK_RC_ARGUMENT_COUNT = 24
ORUSDK_RC_DICT_WRITE = 25
ORUSDK_RC_DICT_READ = 26
ORUSDK_RC_OPEN_MODE = 27
ORUSDK_RC_AUTH_TYPE = 28
ORUSDK_RC_ENC_TYPE = 29
ORUSDK_RC_WPA_MODE = 30
ORUSDK_RC_RAW_PSK = 31
ORUSDK_RC_OPEN_ENABLED = 32
ORUSDK_RC_WPA_NOT_ENABLED = 33
ORUSDK_RC_WEP_KEY_LENGTH = 34
ORUSDK_RC_WEP_KEY_ID = 35
ORUSDK_RC_WEP_KEY_HEX = 36
ORUSDK_RC_WEP_KEY_MISSING = 37
ORUSDK_RC_BOOLEAN = 38
ORUSDK_RC_WEP_KEY_TEXT_LENGTH = 39
ORUSDK_RC_ARGUMENTS = 40
ORUSDK_RC_PASS_PHRASE = 41
ORUSDK_RC_KEY_READ = 42
ORUSDK_RC_SESSION_TIMEOUT = 43
ORUSDK_RC_GROUP_KEY_TIMEOUT = 44
ORUSDK_RC_WPA_ENABLED = 45
ORUSDK_RC_WEP_ENABLED = 46
ORUSDK_RC_OPTION = 47
ORUSDK_RC_WSM_REQUEST = 48
ORUSDK_RC_WMM = 49
ORUSDK_RC_NETWORK_DENSITY = 50
ORUSDK_RC_PROTECTION = 51
ORUSDK_RC_QOS = 52
ORUSDK_RC_STD_EXTENSION = 53
ORUSDK_RC_BAND_TYPE = 54
ORUSDK_RC_BG_SCANNING = 55
ORUSDK_RC_STA_ADMISSION = 56
ORUSDK_RC_AA_REQUEST = 57
ORUSDK_RC_FILE_COPY = 58
ORUSDK_RC_NEEDS_STD_EXTENSIONS = 59
ORUSDK_RC_MODE_IS_11B_ONLY = 60
ORUSDK_RC_PERIODIC_DFS = 61
ORUSDK_RC_FIXED_RATE_11B = 62
ORUSDK_RC_FIXED_RATE_11AG = 63
ORUSDK_RC_CHANNEL_14_JAPAN = 64
ORUSDK_RC_ACK_WITH_ADAPTATION = 65
ORUSDK_RC_ACK_WITHOUT_QOS = 66
ORUSDK_RC_RATE_11B_IN_5GHZ = 67
ORUSDK_RC_RATE_ONLY_11B = 68
ORUSDK_RC_CHANNEL_FOR_11B_RATE = 69
ORUSDK_RC_NEEDS_BG_SCANNING = 70
ORUSDK_RC_REJECTS_11B = 71
ORUSDK_RC_PSK_MISSING = 72
ORUSDK_RC_AUTH_TYPE_MISSING = 73
ORUSDK_RC_ENC_TYPE_MISSING = 74
ORUSDK_RC_MIXED_IE_MISSING = 75
ORUSDK_RC_PERSONA = 76
ORUSDK_RC_BSSID_COUNT = 77
ORUSDK_RC_BSSID_TEXT = 78
ORUSDK_RC_SSID_TEXT = 79
ORUSDK_RC_NO_SECURITY_MODE = 80
ORUSDK_RC_NO_RADIUS_SERVER = 81
ORUSDK_RC_RADIUS_TIMEOUT = 82
ORUSDK_RC_RADIUS_DEADTIME = 83
ORUSDK_RC_RADIUS_SERVER_COUNT = 84
ORUSDK_RC_RADIUS_NAME_LENGTH = 85
ORUSDK_RC_RADIUS_SECRET_LENGTH = 86
ORUSDK_RC_RADIUS_TOTAL_TIME = 87
ORUSDK_RC_REG_DOMAIN = 88
ORUSDK_RC_MAC_ACL_COUNT = 89
ORUSDK_RC_MAC_ACL_MODE = 90
ORUSDK_RC_MAC_ACL_INCOMPLETE = 91
ORUSDK_RC_MEMORY = 92
ORUSDK_RC_CHANNEL_BG_ONLY = 93
ORUSDK_RC_BAND_BG_ONLY = 94
ORUSDK_RC_PERSONA_BG_ONLY = 95
ORUSDK_RC_RADAR_DETECTION = 96
ORUSDK_RC_BROADCAST_RATE = 97
ORUSDK_RC_BROADCAST_RATE_11BG = 98
ORUSDK_RC_BROADCAST_RATE_11B = 99
ORUSDK_RC_EDCA_PROFILE = 100
ORUSDK_RC_QOS_MODE = 101
ORUSDK_RC_QOS_MODE_UNKNOWN = 102
ORUSDK_RC_DYNAMIC_PROFILE = 103
ORUSDK_RC_NEEDS_WMM = 104
ORUSDK_RC_NEEDS_QOS = 105
ORUSDK_RC_SECONDARY_CHANNEL = 106
ORUSDK_RC_MODE_5GHZ = 107
ORUSDK_RC_LENGTH = 108
ORUSDK_RC_NOT_SET = 109
ORUSDK_RC_REGISTRAR = 110
ORUSDK_RC_UUID = 111
ORUSDK_RC_RCR_CHAN_LENGTH = 112
ORUSDK_RC_AP_PIN = 113
ORUSDK_RC_SECURITY_MODE = 114
ORUSDK_RC_BSS_NUMBER = 115
ORUSDK_RC_VLAN_ID = 116
ORUSDK_RC_PORT_ID = 117
ORUSDK_RC_ETH_NUMBER = 118
ORUSDK_RC_PARAMETERS = 119
ORUSDK_RC_RADAR_CHANNEL = 120
ORUSDK_RC_RADAR_UNCHANGED = 121
ORUSDK_RC_CONFIGURED_RADAR_CHANNEL = 122
ORUSDK_RADIO_INFO_MAX_RADIOS = 689
ORUSDK_DFS_PREFERRED_BAND = 4
ORUSDK_DFS_WEIGHT_MARGIN = 5
ORUSDK_DFS_CB_SWITCH = 6
ORUSDK_DFS_PERSIST_RDR = 7
ORUSDK_DFS_FORCE_CH_SEL = 8
ORUSDK_DFS_RDR_PARKING = 9
ORUSDK_DFS_RDR_WEIGHT_FACTOR = 10
ORUSDK_SCAN_ENTRIES = 1111


class OruSdkFeatureParam(Structure):
    """An on/off switch."""
    _fields_ = [
        ("reserved", c_uint16),
        ("radioIndex", c_uint16),
        ("activationFlag", c_uint32),
    ]


class OruSdkOptionParam(Structure):
    """A number, such as an option, a rate or a mode."""
    _fields_ = [
        ("reserved", c_uint32),
        ("radioIndex", c_uint32),
        ("featureOptions", c_uint32),
    ]


class OruSdkRadioInfoEntry(Structure):
    """What WSM tells of one radio: 96 bytes."""
    _fields_ = [
        ("countryCode", c_char * 3),
        ("attr1", c_uint16),
        ("attr2", c_uint16),
        ("attr3", c_uint16),
        ("attr4", c_uint16),
        ("attr5", c_uint32),
        ("attr6", c_uint8),
        ("attr7", c_uint16),
        ("attr8", c_uint16),
        ("attr9", c_uint32),
        ("bandSupport", c_uint8 * 4),
        ("channelCount", c_uint8),
        ("channels", c_uint8 * 63),
    ]


class OruSdkRadioInfo(Structure):
    """What WSM tells of its radios."""
    _fields_ = [
        ("radioCount", c_uint8 * 4),
        ("entries", OruSdkRadioInfoEntry * 2),
    ]


class OruSdkWorldModeParam(Structure):
    """World mode."""
    _fields_ = [
        ("worldModeSupport", c_uint32),
        ("countryCode", c_char * 3),
    ]


class OruSdkChannelParam(Structure):
    """How a radio comes to its channel."""
    _fields_ = [
        ("radioIndex", c_uint32),
        ("channel", c_uint32),
        ("secondaryChannel", c_uint32),
        ("autoSelMode", c_uint32),
        ("periodicDfsTimer", c_uint32),
    ]


class OruSdkDfsParam(Structure):
    """Dynamic frequency selection."""
    _fields_ = [
        ("radioIndex", c_uint8),
        ("paramId", c_uint8),
        ("preferred24GPrimChan", c_uint8),
        ("preferred24GSecdChan", c_uint8),
        ("preferred5GPrimChan", c_uint8),
        ("preferred5GSecdChan", c_uint8),
        ("lowUniiBand", c_uint8),
        ("midUniiBand", c_uint8),
        ("highUniiBand", c_uint8),
        ("preferredBand", c_uint8),
        ("weightMargin", c_uint8),
        ("persistRdr", c_uint8),
        ("forceChSelChan", c_uint8),
        ("rdrParking", c_uint8),
        ("cbSwitch", c_uint32),
        ("rdrChanWghtFactor", c_uint32),
    ]


class OruSdkMaxRateParam(Structure):
    """The maximum data rate."""
    _fields_ = [
        ("radioIndex", c_uint32),
        ("maxRate", c_uint32),
    ]


class OruSdkBasicRateSetParam(Structure):
    """The basic rates of one family, as a setter takes them."""
    _fields_ = [
        ("radioIndex", c_uint32),
        ("rateMode", c_uint32),
        ("rateSet", c_char * 64),
    ]


class OruSdkBasicRateSetInfo(Structure):
    """The basic rates of all families, as a getter gives them."""
    _fields_ = [
        ("radioIndex", c_uint32),
        ("dot11aRates", c_char * 64),
        ("dot11bRates", c_char * 64),
        ("dot11gRates", c_char * 64),
        ("dot11nRates", c_char * 64),
    ]


class OruSdkDot11MacParam(Structure):
    """MAC thresholds and retry limits of a radio."""
    _fields_ = [
        ("radioIndex", c_uint32),
        ("fragThreshold", c_uint32),
        ("rtsThreshold", c_uint32),
        ("shortRetryLimit", c_uint32),
        ("longRetryLimit", c_uint32),
    ]


class OruSdkBeaconParam(Structure):
    """Beacon timing of a radio."""
    _fields_ = [
        ("radioIndex", c_uint32),
        ("beaconPeriod", c_uint32),
        ("dtimPeriod", c_uint32),
    ]


class OruSdkProtectionParam(Structure):
    """802.11g protection."""
    _fields_ = [
        ("radioIndex", c_uint32),
        ("prtnEnable", c_uint32),
        ("protectionMode", c_uint32),
    ]


class OruSdkRadioSwitchParam(Structure):
    """A switch that other settings depend on."""
    _fields_ = [
        ("reserved", c_uint16),
        ("radioIndex", c_uint16),
        ("enable", c_uint32),
    ]


class OruSdkWmmParam(Structure):
    """WMM and the traffic classifier."""
    _fields_ = [
        ("radioIndex", c_uint32),
        ("wmmEnabled", c_uint32),
        ("trafficClassifier", c_uint32),
    ]


class OruSdkAssignBssParam(Structure):
    """Switches one radio on or off for a BSS."""
    _fields_ = [
        ("bssIndex", c_int32),
        ("radioIndex", c_uint32),
        ("enable", c_uint32),
    ]


class OruSdkSuppressSsidParam(Structure):
    """Whether the SSID of a BSS is kept out of its beacons."""
    _fields_ = [
        ("bssIndex", c_uint32),
        ("suppress", c_uint32),
    ]


class OruSdkSecTimeoutsParam(Structure):
    """Security timeouts of a BSS."""
    _fields_ = [
        ("sessionTimeout", c_int32),
        ("groupKeyTimeout", c_int32),
    ]


class OruSdkMacAuthParam(Structure):
    """Static-WEP authentication type of a BSS at the MAC layer."""
    _fields_ = [
        ("bssIndex", c_int32),
        ("radioIndex", c_uint32),
        ("authType", c_uint32),
    ]


class OruSdkRadiusServer(Structure):
    """One RADIUS server."""
    _fields_ = [
        ("name", c_char * 65),
        ("port", c_uint32),
        ("secret", c_char * 66),
    ]


class OruSdkRegistrarParam(Structure):
    """Registrar setting of a BSS."""
    _fields_ = [
        ("bssIndex", c_int32),
        ("radioIndex", c_uint32),
        ("registrarInfo", c_uint32),
    ]


class OruSdkClientAdminCritParam(Structure):
    """The SSID and BSSID that a client bridge is to join."""
    _fields_ = [
        ("radioIndex", c_uint32),
        ("ssid", c_char_p),
        ("bssid", c_char_p),
    ]


class OruSdkRadioStatsParam(Structure):
    """Statistics of a radio."""
    _fields_ = [
        ("selector1", c_uint8),
        ("selector2", c_uint8),
        ("statsStr", c_char * 19998),
    ]


class OruSdkStaStatsParam(Structure):
    """Statistics of a station."""
    _fields_ = [
        ("selector1", c_uint8),
        ("selector2", c_uint8),
        ("macAddr", c_uint8 * 6),
        ("statsStr", c_char * 19998),
    ]


class OruSdkBssEntry(Structure):
    """A BSS of a radio, 96 bytes."""
    _fields_ = [
        ("element17", c_uint8 * 4),
        ("ssid", c_char * 33),
        ("reserved1", c_uint8 * 40),
        ("bssid", c_char * 18),
        ("reserved2", c_uint8),
    ]


class OruSdkBssListParam(Structure):
    """The BSSes of one radio."""
    _fields_ = [
        ("bss", OruSdkBssEntry * 4),
        ("radioIndex", c_uint16),
        ("element1", c_uint8 * 2),
        ("numBss", c_uint32),
        ("element18", c_uint8 * 2),
    ]


class OruSdkScanEntry(Structure):
    """A neighbouring network, 55 bytes."""
    _fields_ = [
        ("bssid", c_char * 18),
        ("ssid", c_char * 33),
        ("reserved", c_uint8 * 4),
    ]


class OruSdkScanlistParam(Structure):
    """The networks that the radios hear."""
    _fields_ = [
        ("numEntries", c_uint8 * 4),
        ("reserved", c_uint8 * 4),
        ("entries", OruSdkScanEntry * 1111),
    ]


class OruSdkStationEntry(Structure):
    """A station, 22 bytes."""
    _fields_ = [
        ("staId", c_uint8 * 4),
        ("macAddr", c_char * 18),
    ]


class OruSdkStationParam(Structure):
    """The stations of one BSS."""
    _fields_ = [
        ("stations", OruSdkStationEntry * 256),
        ("numStations", c_uint8 * 4),
        ("bssIndex", c_uint8 * 2),
        ("radioIndex", c_uint8 * 2),
    ]


class OruSdkRadioEntry(Structure):
    """A radio, 460 bytes."""
    _fields_ = [
        ("element1", c_uint8 * 4),
        ("element2", c_char * 17),
        ("element3", c_uint8 * 4),
        ("element8", c_uint8 * 4),
        ("element4", c_uint8 * 4),
        ("element277", c_uint8 * 4),
        ("reserved", c_uint8 * 33),
        ("element6", c_uint8 * 4),
        ("element18", c_uint8 * 2),
        ("bss", OruSdkBssEntry * 4),
    ]


class OruSdkRadioParam(Structure):
    """The radios."""
    _fields_ = [
        ("radios", OruSdkRadioEntry * 2),
        ("numRadios", c_uint8 * 4),
    ]


class OruSdkBssInfoParam(Structure):
    """Summary of one BSS."""
    _fields_ = [
        ("bssIndex", c_int32),
        ("ssid", c_char * 33),
        ("suppressSsid", c_uint32),
        ("securityMode", c_char * 12),
    ]


# Each operation: what it returns, and what it takes.
OPERATIONS = {
    "oruSdkGetVersion": (c_char_p, []),
    "oruSdkCommitRadio": (c_uint32, []),
    "oruSdkCommitAll": (c_uint32, []),
    "oruSdkResetToDefaults": (c_uint32, []),
    "oruSdkResetToBss": (c_uint32, [c_int32]),
    "oruSdkGetShortGuardInterval40MHz": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetShortGuardInterval40MHz": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetShortGuardInterval20MHz": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetShortGuardInterval20MHz": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetRifsSupport": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetRifsSupport": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetSmartBackgroundScan": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetSmartBackgroundScan": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetGreenfieldCapability": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetGreenfieldCapability": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGet11bSupport": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSet11bSupport": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetEnhancedRates": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetEnhancedRates": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetCoexist2040": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetCoexist2040": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetSpectrumMgmt": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetSpectrumMgmt": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetReverseFcs": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetReverseFcs": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetProximity": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetProximity": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetMimo": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetMimo": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetRadioProprietaryExt": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetRadioProprietaryExt": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkGetLocalPowerConstraint": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetLocalPowerConstraint": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetMaxMpduFactor": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetMaxMpduFactor": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetMpduDensity": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetMpduDensity": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetBlockAckAuto": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetBlockAckAuto": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetBss2040CoexistElement": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetBss2040CoexistElement": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetBssWidthTriggerScanInterval": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetBssWidthTriggerScanInterval": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetNumSs": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetNumSs": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetTxPowerAdj": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetTxPowerAdj": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetTxPower": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetTxPower": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetNwkDensityValue": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetNwkDensityValue": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetNwkDensity": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetNwkDensity": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetPreambleType": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetPreambleType": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetRadioInfo": (c_uint32, [POINTER(OruSdkRadioInfo)]),
    "oruSdkGetWorldMode": (c_uint32, [POINTER(OruSdkWorldModeParam)]),
    "oruSdkSetWorldMode": (c_uint32, [POINTER(OruSdkWorldModeParam)]),
    "oruSdkGetChannelParam": (c_uint32, [POINTER(OruSdkChannelParam)]),
    "oruSdkSetChannelParam": (c_uint32, [POINTER(OruSdkChannelParam)]),
    "oruSdkGetDfsParam": (c_uint32, [POINTER(OruSdkDfsParam)]),
    "oruSdkSetDfsUniiBands": (c_uint32, [POINTER(OruSdkDfsParam)]),
    "oruSdkSetDfsParamEnable": (c_uint32, [POINTER(OruSdkDfsParam)]),
    "oruSdkSetDfsParamValue": (c_uint32, [POINTER(OruSdkDfsParam)]),
    "oruSdkSetDfsPrefChans": (c_uint32, [POINTER(OruSdkDfsParam), c_uint8]),
    "oruSdkGetRadarDetect": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetRadarDetect": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetRdrPersistChan": (c_uint32, [c_char_p]),
    "oruSdkGetRadioPersona": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetRadioPersona": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetChannelSet": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetChannelSet": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetDot11Mode": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetDot11Mode": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "convertExtToIntRateCode": (c_uint32, [c_int32]),
    "oruSdkGetRateParam": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetRateParam": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetMcsRateParam": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetMcsRateParam": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetBroadcastRate": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetBroadcastRate": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetBroadcastMcsRate": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetBroadcastMcsRate": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetMaxRate": (c_uint32, [POINTER(OruSdkMaxRateParam)]),
    "oruSdkSetMaxRate": (c_uint32, [POINTER(OruSdkMaxRateParam)]),
    "oruSdkGetBasicRateSetParam": (c_uint32, [POINTER(OruSdkBasicRateSetInfo)]),
    "oruSdkSetBasicRateSetParam": (c_uint32, [POINTER(OruSdkBasicRateSetParam)]),
    "oruSdkGetDot11MacParam": (c_uint32, [POINTER(OruSdkDot11MacParam)]),
    "oruSdkSetDot11MacParam": (c_uint32, [POINTER(OruSdkDot11MacParam)]),
    "oruSdkGetBeaconParam": (c_uint32, [POINTER(OruSdkBeaconParam)]),
    "oruSdkSetBeaconParam": (c_uint32, [POINTER(OruSdkBeaconParam)]),
    "oruSdkGetDot11Protection": (c_uint32, [POINTER(OruSdkProtectionParam)]),
    "oruSdkSetDot11Protection": (c_uint32, [POINTER(OruSdkProtectionParam)]),
    "oruSdkGetDot11StdExt": (c_uint32, [POINTER(OruSdkRadioSwitchParam)]),
    "oruSdkSetDot11StdExt": (c_uint32, [POINTER(OruSdkRadioSwitchParam)]),
    "oruSdkGetBgScanning": (c_uint32, [POINTER(OruSdkRadioSwitchParam)]),
    "oruSdkSetBgScanning": (c_uint32, [POINTER(OruSdkRadioSwitchParam)]),
    "oruSdkGetStaAcceptCriteria": (c_uint32, [POINTER(OruSdkRadioSwitchParam)]),
    "oruSdkSetStaAcceptCriteria": (c_uint32, [POINTER(OruSdkRadioSwitchParam)]),
    "oruSdkGetSbsParams": (c_uint32, [c_int32, POINTER(c_uint32), POINTER(c_uint32)]),
    "oruSdkSetSbsParams": (c_uint32, [c_int32, c_uint32, c_uint32]),
    "oruSdkGetWmm": (c_uint32, [POINTER(OruSdkWmmParam)]),
    "oruSdkSetWmm": (c_uint32, [POINTER(OruSdkWmmParam)]),
    "oruSdkGetEdcaProfile": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetEdcaProfile": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetDynamicProfileSelect": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetDynamicProfileSelect": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkGetChannelBondingMode": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkSetChannelBondingMode": (c_uint32, [POINTER(OruSdkOptionParam)]),
    "oruSdkAssignBss": (c_uint32, [POINTER(OruSdkAssignBssParam)]),
    "oruSdkGetAssignBssReq": (c_uint32, [c_int32, POINTER(c_uint32)]),
    "oruSdkSetSsid": (c_uint32, [c_int32, c_char_p]),
    "oruSdkGetSsid": (c_uint32, [c_int32, POINTER(c_char), POINTER(c_uint32)]),
    "oruSdkSetSuppressSsid": (c_uint32, [POINTER(OruSdkSuppressSsidParam)]),
    "oruSdkGetSuppressSsid": (c_uint32, [POINTER(OruSdkSuppressSsidParam)]),
    "oruSdkSetIntraBss": (c_uint32, [c_int32, c_int32]),
    "oruSdkGetIntraBss": (c_uint32, [c_int32, POINTER(c_uint32)]),
    "oruSdkSetInterBss": (c_uint32, [c_int32, c_int32]),
    "oruSdkGetInterBss": (c_uint32, [c_int32, POINTER(c_uint32)]),
    "oruSdkSetVlanId": (c_uint32, [c_int32, c_uint32]),
    "oruSdkGetVlanId": (c_uint32, [POINTER(c_uint32), c_uint32]),
    "oruSdkSetEtherVlanId": (c_uint32, [c_int32, POINTER(c_char_p)]),
    "oruSdkGetEtherVlanId": (c_uint32, [POINTER(c_uint16), POINTER(c_uint32), POINTER(c_uint32), c_int32]),
    "oruSdkSetSecModeOpen": (c_uint32, [c_int32, c_uint32]),
    "oruSdkGetSecModeOpen": (c_uint32, [c_int32, POINTER(c_uint32)]),
    "oruSdkSetSecModeWpa": (c_uint32, [c_int32, c_uint32, c_int32, c_uint32]),
    "oruSdkGetSecModeWpa": (c_uint32, [c_int32, POINTER(c_uint32), POINTER(c_uint32), POINTER(c_uint32)]),
    "oruSdkSetSecModeWep": (c_uint32, [c_int32, c_uint32, c_int32, c_uint32, c_char_p, c_char_p, c_char_p, c_char_p]),
    "oruSdkGetSecModeWep": (c_uint32, [c_int32, POINTER(c_uint32), POINTER(c_uint32), POINTER(c_uint32), POINTER(c_char), POINTER(c_char), POINTER(c_char), POINTER(c_char)]),
    "isHex": (c_uint32, [c_char_p]),
    "oruSdkSetWpaPsk": (c_uint32, [c_int32, c_char_p]),
    "oruSdkGetWpaPsk": (c_uint32, [c_int32, POINTER(c_char), POINTER(c_uint32)]),
    "oruSdkSetSecTimeouts": (c_uint32, [POINTER(OruSdkSecTimeoutsParam), c_uint8]),
    "oruSdkGetSecTimeouts": (c_uint32, [POINTER(OruSdkSecTimeoutsParam), c_uint8]),
    "oruSdkSetMacAuth": (c_uint32, [POINTER(OruSdkMacAuthParam)]),
    "oruSdkGetMacAuth": (c_uint32, [POINTER(OruSdkMacAuthParam)]),
    "oruSdkSetRadiusConf": (c_uint32, [c_int32, c_int32, c_int32, c_int32, POINTER(OruSdkRadiusServer)]),
    "oruSdkGetRadiusConf": (c_uint32, [POINTER(c_uint32), POINTER(c_uint32), POINTER(c_uint32), POINTER(c_uint32), POINTER(OruSdkRadiusServer)]),
    "oruSdkSetMacAclList": (c_uint32, [POINTER(c_uint32), POINTER(c_int32), c_char_p]),
    "oruSdkGetMacAclList": (c_uint32, [POINTER(c_uint32), POINTER(c_int32), POINTER(c_char)]),
    "oruSdkGetRegistrarInfo": (c_uint32, [c_int32, POINTER(c_uint32)]),
    "oruSdkSetRegistrarInfo": (c_uint32, [POINTER(OruSdkRegistrarParam)]),
    "oruSdkGetApEnforcePinTimeout": (c_uint32, [c_int32, POINTER(c_uint32)]),
    "oruSdkSetApEnforcePinTimeout": (c_uint32, [c_int32, c_uint32]),
    "oruSdkGetWscState": (c_uint32, [c_int32, POINTER(c_uint32)]),
    "oruSdkSetWscState": (c_uint32, [c_int32, c_uint32]),
    "oruSdkGetWsc": (c_uint32, [c_int32, POINTER(c_uint32)]),
    "oruSdkSetWsc": (c_uint32, [c_int32, c_uint32]),
    "oruSdkGetUuid": (c_uint32, [c_int32, POINTER(c_char), POINTER(c_uint32)]),
    "oruSdkSetUuid": (c_uint32, [c_int32, c_char_p]),
    "oruSdkGetWpsIntf": (c_uint32, [c_int32, POINTER(c_char), POINTER(c_uint32)]),
    "oruSdkSetWpsIntf": (c_uint32, [c_int32, c_char_p]),
    "oruSdkGetClientAdminCrit": (c_uint32, [POINTER(OruSdkClientAdminCritParam)]),
    "oruSdkSetClientAdminCrit": (c_uint32, [POINTER(OruSdkClientAdminCritParam)]),
    "oruSdkSetDevicePin": (c_uint32, [c_uint32, c_uint32, c_char_p]),
    "oruSdkGetDevicePin": (c_uint32, [c_int32, POINTER(c_char), POINTER(c_uint32)]),
    "oruSdkGenPassword": (c_uint32, [c_uint32, c_uint32]),
    "sendWscEnroll": (c_uint32, [c_uint32, c_uint32, c_uint32, c_char_p]),
    "oruSdkGetWscStatus": (c_uint32, [c_uint32, c_uint32, POINTER(c_uint32)]),
    "oruSdkGetRadioStats": (c_uint32, [POINTER(OruSdkRadioStatsParam)]),
    "oruSdkGetStaStats": (c_uint32, [POINTER(OruSdkStaStatsParam)]),
    "oruSdkGetStatsValue": (c_int32, [c_char_p, c_char_p]),
    "oruSdkGetBssListParam": (c_uint32, [POINTER(OruSdkBssListParam)]),
    "oruSdkGetScanlistParam": (c_uint32, [POINTER(OruSdkScanlistParam)]),
    "oruSdkGetStationParam": (c_uint32, [POINTER(OruSdkStationParam)]),
    "oruSdkGetRadioParam": (c_uint32, [POINTER(OruSdkRadioParam)]),
    "oruSdkGetAdminStatus": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "oruSdkSetAdminStatus": (c_uint32, [POINTER(OruSdkFeatureParam)]),
    "sendDisAssocReq": (c_uint32, [POINTER(c_uint8)]),
    "oruSdkGetBssInfoParam": (c_uint32, [POINTER(OruSdkBssInfoParam)]),
}

VARIABLES = {
    "oruSdkRcStr": c_char_p * 122,
    "port": c_uint32,
    "vers": c_uint32,
    "authPort": c_uint32,
    "ifi": c_uint16,
    "oruSdkCountryStrings": c_char_p * 244,
    "rateMap": c_char_p * 24,
}
