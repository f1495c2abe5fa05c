/**
 * @file oruSdk.h
 * oruSdk: read and change the configuration of a dual-radio 802.11a/b/g/n access point, and ask its
 * services for live status.
 *
 * Conventions
 *  1. Plain C99 and C++11. Every operation is synchronous and returns a return code: 0 is success,
 *     anything else indexes oruSdkRcStr[]. Operations that return something else say so.
 *  2. One operation returns 122, for which the table has no text, and two hand on a negative status
 *     of liboruAsf: check a code against ORUSDK_RC_COUNT before indexing. Code 0 has no message of
 *     its own. The entry of 120 holds the messages of 120 and 121, that of 121 the one of 122.
 *  3. Records are the caller's. A getter fills the fields that it describes and leaves the others;
 *     on failure it leaves what it had not yet read. Nothing is allocated for the caller; refusals
 *     that leave a dictionary in memory, on purpose, say so. Fields named `reserved` are neither
 *     read nor written.
 *  4. Radio indexes are 0 and 1, BSS indexes 0 to 3. What can fail is looked at in the order of the
 *     @retval lines, or as they say; the first failure decides. What stands before 7 is looked at
 *     before any file is read, and no file is written before 8, unless an operation says otherwise.
 *  5. A setter changes a configuration file, atomically, and nothing else; of two files, one after
 *     the other. The access point takes the new values with the next commit: oruSdkCommitAll(), or
 *     for "/var/wsmDefaults" also oruSdkCommitRadio(). Operations that act at once say so.
 *  6. The library has no threads and no locks. Any thread may call any operation; only the first
 *     one that needs the radios (9) must not have another such one beside it. Two writers of one
 *     file at the same time can lose one change, since each save writes the whole file.
 *  7. Failures are logged by oruAsfLogMsg() of liboruAsf, where they are found, and some once more
 *     by what they end. Codes that come without a line say so.
 *  8. When the environment holds ORU_ROOT (and the process is not set-uid), all files and sockets
 *     are looked up inside that folder.
 *  9. A question to a service waits for at most 20 seconds, and 2 before that when the service is
 *     too busy to be connected to. Some settings are checked against what WSM tells of the radios:
 *     the first such check of a process asks, and its answer serves all later ones. When that
 *     question failed, the operation that asked says what comes of it, and later ones find no
 *     country, no channel, and a product for 2.4 GHz alone; so do all when WSM did not answer.
 */
#ifndef ORU_SDK_H
#define ORU_SDK_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define ORUSDK_API __attribute__((visibility("default")))
#else
#define ORUSDK_API
#endif

/* Its sections, in this order:
 *
 *   Return codes
 *   Services: a host program may change these before its first call
 *   Shared records
 *   Commit and reset
 *   Switches of a radio
 *   Numeric options of a radio
 *   Radio information and world mode
 *   Channels
 *   DFS and preferred channels
 *   Radar detection
 *   Radio persona and channel set
 *   802.11 mode
 *   Rate codes and rates
 *   Basic rate sets
 *   MAC, beacon, retry and threshold parameters
 *   Protection, standard extensions, scanning and admission
 *   QoS and channel bonding
 *   BSS assignment and identity
 *   Security modes: open and WPA
 *   WEP
 *   WPA pre-shared key and pass-phrase
 *   Security timeouts and MAC authentication
 *   RADIUS servers
 *   MAC access-control list
 *   WPS configuration
 *   WPS device PIN and password
 *   WPS enrollment and status
 *   Statistics
 *   Live tables
 *   Administrative status and disassociation
 *   BSS summary
 */

/* ---- Return codes -----------------------------------------------------------------------------
 */

/** Entries of oruSdkRcStr[]. */
#define ORUSDK_RC_COUNT 122u

/** Return codes. Several are kept for callers that know them, and returned by no operation. */
enum {
    ORUSDK_RC_OK = 0,                   /**< done; the table's entry says "Not defined" */
    ORUSDK_RC_ERROR = 1,                /**< error */
    ORUSDK_RC_NULL_POINTER = 2,         /**< NULL pointer */
    ORUSDK_RC_RADIO_ID = 3,             /**< invalid radio ID */
    ORUSDK_RC_ACK_MODE = 4,             /**< invalid ack mode */
    ORUSDK_RC_AUTO_ADAPTATION = 5,      /**< invalid auto adaptation type */
    ORUSDK_RC_RATE_CODE = 6,            /**< invalid rate code */
    ORUSDK_RC_FILE_READ = 7,            /**< error in reading configuration file */
    ORUSDK_RC_FILE_WRITE = 8,           /**< Error in writing configuration file */
    ORUSDK_RC_BEACON_PERIOD = 9,        /**< invalid beacon period value */
    ORUSDK_RC_DTIM_PERIOD = 10,         /**< invalid DTIM period value */
    ORUSDK_RC_FRAG_THRESHOLD = 11,      /**< invalid fragment threshold value */
    ORUSDK_RC_RTS_THRESHOLD = 12,       /**< invalid RTS threshold value */
    ORUSDK_RC_SHORT_RETRY_LIMIT = 13,   /**< invalid short retry limit */
    ORUSDK_RC_LONG_RETRY_LIMIT = 14,    /**< invalid long retry limit */
    ORUSDK_RC_MULTI_DOMAIN = 15,        /**< invalid multi domain enabled value */
    ORUSDK_RC_COUNTRY_CODE = 16,        /**< invalid country code */
    ORUSDK_RC_PREAMBLE = 17,            /**< invalid preamble type */
    ORUSDK_RC_MODE_24GHZ = 18,          /**< invalid 2.4Ghz mode */
    ORUSDK_RC_CHANNEL = 19,             /**< invalid channel number */
    ORUSDK_RC_AUTO_SELECT_MODE = 20,    /**< invalid auto select channel mode */
    ORUSDK_RC_DOT11_MODE = 21,          /**< invalid 802.11 mode */
    ORUSDK_RC_RATE_SET = 22,            /**< Invalid rate set string */
    ORUSDK_RC_SSID_LENGTH = 23,         /**< invalid SSID length */
    ORUSDK_RC_ARGUMENT_COUNT = 24,      /**< invalid number of input arguments */
    ORUSDK_RC_DICT_WRITE = 25,          /**< error in writing to dictionary */
    ORUSDK_RC_DICT_READ = 26,           /**< error in reading from dictionary */
    ORUSDK_RC_OPEN_MODE = 27,           /**< invalid open security mode */
    ORUSDK_RC_AUTH_TYPE = 28,           /**< invalid security authentication type */
    ORUSDK_RC_ENC_TYPE = 29,            /**< invalid security encryption type */
    ORUSDK_RC_WPA_MODE = 30,            /**< invalid security WPA mode */
    ORUSDK_RC_RAW_PSK = 31,             /**< invalid security raw PSK key */
    ORUSDK_RC_OPEN_ENABLED = 32,        /**< open security mode must not be enabled */
    ORUSDK_RC_WPA_NOT_ENABLED = 33,     /**< WPA mode is not enabled */
    ORUSDK_RC_WEP_KEY_LENGTH = 34,      /**< invalid WEP key length */
    ORUSDK_RC_WEP_KEY_ID = 35,          /**< default WEP key ID out of range */
    ORUSDK_RC_WEP_KEY_HEX = 36,         /**< non-hex characters in WEP key */
    ORUSDK_RC_WEP_KEY_MISSING = 37,     /**< default WEP key is not provided */
    ORUSDK_RC_BOOLEAN = 38,             /**< invalid boolean value */
    ORUSDK_RC_WEP_KEY_TEXT_LENGTH = 39, /**< invalid WEP key string length */
    ORUSDK_RC_ARGUMENTS = 40,           /**< invalid arguments */
    ORUSDK_RC_PASS_PHRASE = 41,         /**< invalid pass-phrase */
    ORUSDK_RC_KEY_READ = 42,            /**< error in reading element from configuration file */
    ORUSDK_RC_SESSION_TIMEOUT = 43,     /**< invalid session timeout value */
    ORUSDK_RC_GROUP_KEY_TIMEOUT = 44,   /**< invalid group key timeout value */
    ORUSDK_RC_WPA_ENABLED = 45,         /**< WPA must not be enabled */
    ORUSDK_RC_WEP_ENABLED = 46,         /**< WEP must not be enabled */
    ORUSDK_RC_OPTION =
        47, /**< an option's value is out of range; "Invalid radio administrative status" */
    ORUSDK_RC_WSM_REQUEST = 48,     /**< failed to send request to radio mgt module(WSM) */
    ORUSDK_RC_WMM = 49,             /**< invalid WMM enable value */
    ORUSDK_RC_NETWORK_DENSITY = 50, /**< invalid network density type */
    ORUSDK_RC_PROTECTION = 51,      /**< invalid 802.11 protection state */
    ORUSDK_RC_QOS = 52,             /**< invalid 802.11 QoS state */
    ORUSDK_RC_STD_EXTENSION = 53,   /**< invalid 802.11 standard extension state */
    ORUSDK_RC_BAND_TYPE = 54,       /**< invalid channel set band type */
    ORUSDK_RC_BG_SCANNING = 55,     /**< invalid background scanning enable state */
    ORUSDK_RC_STA_ADMISSION = 56,   /**< invalid 802.11b station admission criteria */
    ORUSDK_RC_AA_REQUEST = 57,      /**< failed to send request to authorization agent module(AA) */
    ORUSDK_RC_FILE_COPY = 58,       /**< failed to copy configuration file */
    ORUSDK_RC_NEEDS_STD_EXTENSIONS = 59, /**< 802.11 standard extensions must be enabled */
    ORUSDK_RC_MODE_IS_11B_ONLY = 60,     /**< 802.11 2.4Ghz mode must not be 802.11b only */
    ORUSDK_RC_PERIODIC_DFS = 61,         /**< periodic DFS must not be enabled */
    ORUSDK_RC_FIXED_RATE_11B = 62,       /**< fixed rate must not be set to 802.11b rates */
    ORUSDK_RC_FIXED_RATE_11AG = 63,      /**< fixed rate must not be set to 802.11a/g rates */
    ORUSDK_RC_CHANNEL_14_JAPAN = 64,     /**< channel 14 invalid in 802.11g mode for Japan */
    ORUSDK_RC_ACK_WITH_ADAPTATION =
        65, /**< ack mode cannot be set to NO_ACK when auto adaptation is ON */
    ORUSDK_RC_ACK_WITHOUT_QOS =
        66, /**< ack mode must be set to IMM_ACK when 802.11 QoS is disabled */
    ORUSDK_RC_RATE_11B_IN_5GHZ = 67,     /**< 802.11b rates are invalid in 5Ghz band */
    ORUSDK_RC_RATE_ONLY_11B = 68,        /**< ONLY 802.11b rates allowed in 802.11b mode */
    ORUSDK_RC_CHANNEL_FOR_11B_RATE = 69, /**< invalid channel for 802.11b fixed rates */
    ORUSDK_RC_NEEDS_BG_SCANNING = 70,    /**< background scanning must be enabled */
    ORUSDK_RC_REJECTS_11B = 71,          /**< 802.11b ONLY mode: must not reject 802.11b stations */
    ORUSDK_RC_PSK_MISSING = 72,          /**< PSK is not set */
    ORUSDK_RC_AUTH_TYPE_MISSING = 73,    /**< auth Type is not set */
    ORUSDK_RC_ENC_TYPE_MISSING = 74,     /**< encryption type not set */
    ORUSDK_RC_MIXED_IE_MISSING = 75,     /**< mixed IE mode not set */
    ORUSDK_RC_PERSONA = 76,              /**< invalid radio persona */
    ORUSDK_RC_BSSID_COUNT = 77,          /**< invalid number of BSSIDs */
    ORUSDK_RC_BSSID_TEXT = 78,           /**< invalid BSSID string */
    ORUSDK_RC_SSID_TEXT = 79,            /**< invalid SSID string */
    ORUSDK_RC_NO_SECURITY_MODE = 80,     /**< no security mode set */
    ORUSDK_RC_NO_RADIUS_SERVER = 81,     /**< no RADIUS servers configured */
    ORUSDK_RC_RADIUS_TIMEOUT = 82,       /**< invalid RADIUS timeout value */
    ORUSDK_RC_RADIUS_DEADTIME = 83,      /**< invalid RADIUS deadtime value */
    ORUSDK_RC_RADIUS_SERVER_COUNT = 84,  /**< invalid number of RADIUS servers */
    ORUSDK_RC_RADIUS_NAME_LENGTH = 85,   /**< invalid RADIUS server name length */
    ORUSDK_RC_RADIUS_SECRET_LENGTH = 86, /**< invalid RADIUS server secret length */
    ORUSDK_RC_RADIUS_TOTAL_TIME = 87,    /**< the total time for trying to reach a RADIUS server
                                            (timeout x maxTries) must be less than 20 seconds */
    ORUSDK_RC_REG_DOMAIN = 88,           /**< invalid channel in regulatory domain(country info) */
    ORUSDK_RC_MAC_ACL_COUNT = 89,        /**< invalid MAC-ACL list count */
    ORUSDK_RC_MAC_ACL_MODE = 90,         /**< invalid MAC-ACL mode */
    ORUSDK_RC_MAC_ACL_INCOMPLETE = 91,   /**< MAC-ACL incomplete; please set MAC-ACL correctly */
    ORUSDK_RC_MEMORY = 92,               /**< system Error: Memory allocation failed */
    ORUSDK_RC_CHANNEL_BG_ONLY = 93,      /**< invalid channel for b/g only radio product */
    ORUSDK_RC_BAND_BG_ONLY = 94,         /**< invalid band for b/g only radio product */
    ORUSDK_RC_PERSONA_BG_ONLY = 95,      /**< invalid persona for b/g only radio product */
    ORUSDK_RC_RADAR_DETECTION = 96,      /**< invalid radar detection setting */
    ORUSDK_RC_BROADCAST_RATE = 97,       /**< invalid broadcast rate specified! */
    ORUSDK_RC_BROADCAST_RATE_11BG = 98,  /**< invalid broadcast rate for mixed 11B/G specified! */
    ORUSDK_RC_BROADCAST_RATE_11B = 99,   /**< invalid broadcast rate for pure 11B specified! */
    ORUSDK_RC_EDCA_PROFILE = 100,        /**< invalid EDCA Profile specified! */
    ORUSDK_RC_QOS_MODE = 101,            /**< invalid QoS Mode specified! */
    ORUSDK_RC_QOS_MODE_UNKNOWN = 102,    /**< unknown QoS Mode detected! */
    ORUSDK_RC_DYNAMIC_PROFILE = 103,     /**< invalid dynamic profile selected! */
    ORUSDK_RC_NEEDS_WMM = 104,           /**< WMM must be enabled */
    ORUSDK_RC_NEEDS_QOS = 105,           /**< 802.11 QoS must be enabled */
    ORUSDK_RC_SECONDARY_CHANNEL = 106,   /**< invalid Secondary Channel Number */
    ORUSDK_RC_MODE_5GHZ = 107,           /**< invalid 5Ghz mode */
    ORUSDK_RC_LENGTH = 108,              /**< invalid length */
    ORUSDK_RC_NOT_SET = 109,             /**< this config item not set, Disabled */
    ORUSDK_RC_REGISTRAR = 110,           /**< invalid Registrar setting */
    ORUSDK_RC_UUID = 111,                /**< invalid UUID setting */
    ORUSDK_RC_RCR_CHAN_LENGTH = 112,     /**< invalid RCR Chan Length */
    ORUSDK_RC_AP_PIN = 113,              /**< invalid AP Pin */
    ORUSDK_RC_SECURITY_MODE = 114,       /**< invalid Security mode set */
    ORUSDK_RC_BSS_NUMBER = 115,          /**< invalid BSS Number */
    ORUSDK_RC_VLAN_ID = 116,             /**< invalid VlanId */
    ORUSDK_RC_PORT_ID = 117,             /**< invalid PortId */
    ORUSDK_RC_ETH_NUMBER = 118,          /**< invalid Eth Number */
    ORUSDK_RC_PARAMETERS = 119,          /**< given parameters are invalid at this instance */
    ORUSDK_RC_RADAR_CHANNEL =
        120, /**< the channel is a radar channel while radar detection is on */
    ORUSDK_RC_RADAR_UNCHANGED = 121, /**< radar detection is in the requested state already */
    ORUSDK_RC_CONFIGURED_RADAR_CHANNEL =
        122 /**< the configured channel is a radar channel; the table has no such entry */
};

/** The message of each return code. Check a code against ORUSDK_RC_COUNT before indexing. */
ORUSDK_API extern const char *const oruSdkRcStr[122];

/**
 * Tells the library's version.
 * @return "5.0.600.16": the same constant text on every call
 */
ORUSDK_API const char *oruSdkGetVersion(void);

/* ---- Services: a host program may change these before its first call. -------------------------
 */

/** Port identifier of WSM, the radio management service: 5000002. */
ORUSDK_API extern uint32_t port;

/** Protocol version of every connection: 1001. */
ORUSDK_API extern uint32_t vers;

/** Port identifier of AA, the authorization agent: 5000003. */
ORUSDK_API extern uint32_t authPort;

/** Kept for programs that link against it; nothing reads or writes it. */
ORUSDK_API extern uint16_t ifi;

/* ---- Shared records ---------------------------------------------------------------------------
 */

/** An on/off switch. */
typedef struct OruSdkFeatureParam {
    uint16_t reserved;       /**< neither read nor written */
    uint16_t radioIndex;     /**< 0 or 1 */
    uint32_t activationFlag; /**< 0 off, 1 on; a getter gives what is stored, unchecked */
} OruSdkFeatureParam;

/** A number, such as an option, a rate or a mode. */
typedef struct OruSdkOptionParam {
    uint32_t reserved;       /**< neither read nor written */
    uint32_t radioIndex;     /**< 0 or 1 */
    uint32_t featureOptions; /**< the number; a getter gives what is stored, unchecked */
} OruSdkOptionParam;

/* ---- Commit and reset -------------------------------------------------------------------------
 */

/**
 * Tells WSM to take the radio configuration, at once.
 * @retval 0 always, on purpose: a notice that can't be sent is only logged
 */
ORUSDK_API uint32_t oruSdkCommitRadio(void);

/**
 * Checks that every BSS has a complete security configuration ("/var/1x.conf"), then tells AA and
 * WSM to reload, at once. BSS 0 is checked first; the first failure ends the call with nothing
 * sent. Reads "bss%d.openAccessEnabled", "bss%d.wpaEnabled", "bss%d.wepEnabled",
 * "bss%d.dynWepEnabled", "bss%d.wpaAuthTypes", "bss%d.wpaEncTypes", "bss%d.mixedIeMode",
 * "bss%d.wpaPsk", "radiusServer.1".
 * @retval 0  checked; a notice that can't be sent is only logged, on purpose
 * @retval 7  the file can't be loaded
 * @retval 26 a security flag is missing or neither "true" nor "false" ("bss%d.dynWepEnabled" counts
 *            as "false" then)
 * @retval 80 a BSS has no security mode
 * @retval 73 a BSS with WPA has no authentication type
 * @retval 74 a BSS with WPA has no encryption type
 * @retval 72 a BSS with a pre-shared key has none stored
 * @retval 81 a BSS needs a RADIUS server, and none is configured
 */
ORUSDK_API uint32_t oruSdkCommitAll(void);

/**
 * Replaces "/var/wsmDefaults" and then "/var/1x.conf" by their factory copies (".orig" beside
 * them). The shell's cp does it, not atomically: a full file system or a power failure can leave a
 * part of a file. Takes effect with the next commit.
 * @retval 0  done
 * @retval 58 a file can't be copied; the one before it stays replaced
 */
ORUSDK_API uint32_t oruSdkResetToDefaults(void);

/**
 * Restores the factory values of one BSS in both files, key by key: 42, 23, 26 and 25 come as their
 * key does. Takes effect with the next commit. A failure before the saves leaves both files
 * unchanged; "/var/wsmDefaults" is saved first.
 * Keys "bss%d.ssId", "bss%d.suppressSSIDFlag", "bss%d.BpRSNFlag", "bss%d.enforcepintimeout" and
 * "bss%d.wvid" of "/var/wsmDefaults"; "bss%d.openAccessEnabled", "bss%d.wpaEnabled",
 * "bss%d.mixedIeMode" (1 when the factory file has none), "bss%d.wpaAuthTypes",
 * "bss%d.wpaEncTypes", "bss%d.macAuthType", "bss%d.wepEnabled", "bss%d.wepKeyLen",
 * "bss%d.wepDefaultKey", "bss%d.dynamicWepEnabled" and "bss%d.wepKey.1" to "bss%d.wepKey.4"
 * (deleted when the factory file has none) of "/var/1x.conf", whose "bss%d.ssId" stays.
 * @param bssIndex 0 to 3; a negative number is not refused and forms its keys with the sign
 * @retval 0   done
 * @retval 115 bssIndex is above 3
 * @retval 7   one of the four files can't be loaded
 * @retval 42  a factory value can't be read (SSID, WPA types, visibility, MAC authentication, VLAN)
 * @retval 23  the factory SSID has more than 32 characters
 * @retval 26  a factory value can't be read (flags, WEP and WPS values)
 * @retval 25  a value can't be written
 * @retval 8   a file can't be saved
 */
ORUSDK_API uint32_t oruSdkResetToBss(int32_t bssIndex);

/* ---- Switches of a radio ----------------------------------------------------------------------
 */

/**
 * Reads the switch: short guard interval in 40 MHz channels.
 * Key "radio%d.ShortGuardInterval40MHz" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetShortGuardInterval40MHz
 */
ORUSDK_API uint32_t oruSdkGetShortGuardInterval40MHz(OruSdkFeatureParam *param);

/**
 * Sets the switch: short guard interval in 40 MHz channels. Takes effect with the next commit.
 * Key "radio%d.ShortGuardInterval40MHz" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetShortGuardInterval40MHz
 */
ORUSDK_API uint32_t oruSdkSetShortGuardInterval40MHz(OruSdkFeatureParam *param);

/**
 * Reads the switch: short guard interval in 20 MHz channels.
 * Key "radio%d.ShortGuardInterval20MHz" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetShortGuardInterval20MHz
 */
ORUSDK_API uint32_t oruSdkGetShortGuardInterval20MHz(OruSdkFeatureParam *param);

/**
 * Sets the switch: short guard interval in 20 MHz channels. Takes effect with the next commit.
 * Key "radio%d.ShortGuardInterval20MHz" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetShortGuardInterval20MHz
 */
ORUSDK_API uint32_t oruSdkSetShortGuardInterval20MHz(OruSdkFeatureParam *param);

/**
 * Reads the switch: reduced interframe spacing.
 * Key "radio%d.RifsSupport" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetRifsSupport
 */
ORUSDK_API uint32_t oruSdkGetRifsSupport(OruSdkFeatureParam *param);

/**
 * Sets the switch: reduced interframe spacing. Takes effect with the next commit.
 * Key "radio%d.RifsSupport" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetRifsSupport
 */
ORUSDK_API uint32_t oruSdkSetRifsSupport(OruSdkFeatureParam *param);

/**
 * Reads the switch: smart background scanning.
 * Key "radio%d.sbsEnabled" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetSmartBackgroundScan
 */
ORUSDK_API uint32_t oruSdkGetSmartBackgroundScan(OruSdkFeatureParam *param);

/**
 * Sets the switch: smart background scanning. Takes effect with the next commit.
 * Key "radio%d.sbsEnabled" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetSmartBackgroundScan
 */
ORUSDK_API uint32_t oruSdkSetSmartBackgroundScan(OruSdkFeatureParam *param);

/**
 * Reads the switch: HT greenfield preambles.
 * Key "radio%d.GreenfieldCapability" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetGreenfieldCapability
 */
ORUSDK_API uint32_t oruSdkGetGreenfieldCapability(OruSdkFeatureParam *param);

/**
 * Sets the switch: HT greenfield preambles. Takes effect with the next commit.
 * Key "radio%d.GreenfieldCapability" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetGreenfieldCapability
 */
ORUSDK_API uint32_t oruSdkSetGreenfieldCapability(OruSdkFeatureParam *param);

/**
 * Reads the switch: 802.11b rates.
 * Key "radio%d.11bSupport" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSet11bSupport
 */
ORUSDK_API uint32_t oruSdkGet11bSupport(OruSdkFeatureParam *param);

/**
 * Sets the switch: 802.11b rates. Takes effect with the next commit.
 * Key "radio%d.11bSupport" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGet11bSupport
 */
ORUSDK_API uint32_t oruSdkSet11bSupport(OruSdkFeatureParam *param);

/**
 * Reads the switch: enhanced rates.
 * Key "radio%d.enchRatesFlag" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetEnhancedRates
 */
ORUSDK_API uint32_t oruSdkGetEnhancedRates(OruSdkFeatureParam *param);

/**
 * Sets the switch: enhanced rates. Takes effect with the next commit.
 * Key "radio%d.enchRatesFlag" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetEnhancedRates
 */
ORUSDK_API uint32_t oruSdkSetEnhancedRates(OruSdkFeatureParam *param);

/**
 * Reads the switch: 20/40 MHz BSS coexistence management.
 * Key "radio%d.dot112040BSSCoexistenceManagementSupport" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetCoexist2040
 */
ORUSDK_API uint32_t oruSdkGetCoexist2040(OruSdkFeatureParam *param);

/**
 * Sets the switch: 20/40 MHz BSS coexistence management. Takes effect with the next commit.
 * Key "radio%d.dot112040BSSCoexistenceManagementSupport" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetCoexist2040
 */
ORUSDK_API uint32_t oruSdkSetCoexist2040(OruSdkFeatureParam *param);

/**
 * Reads the switch: spectrum management (802.11h).
 * Key "spectrumManagementFlag" of "/var/wsmDefaults", one for both radios: radioIndex only has to
 * be valid.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetSpectrumMgmt
 */
ORUSDK_API uint32_t oruSdkGetSpectrumMgmt(OruSdkFeatureParam *param);

/**
 * Sets the switch: spectrum management (802.11h). Takes effect with the next commit.
 * Key "spectrumManagementFlag" of "/var/wsmDefaults", one for both radios: radioIndex only has to
 * be valid.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetSpectrumMgmt
 */
ORUSDK_API uint32_t oruSdkSetSpectrumMgmt(OruSdkFeatureParam *param);

/**
 * Reads the switch: reversed frame check sequence.
 * Key "reverseFcsFlag" of "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetReverseFcs
 */
ORUSDK_API uint32_t oruSdkGetReverseFcs(OruSdkFeatureParam *param);

/**
 * Sets the switch: reversed frame check sequence. Takes effect with the next commit.
 * Key "reverseFcsFlag" of "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetReverseFcs
 */
ORUSDK_API uint32_t oruSdkSetReverseFcs(OruSdkFeatureParam *param);

/**
 * Reads the switch: proximity mode.
 * Key "proximity" of "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetProximity
 */
ORUSDK_API uint32_t oruSdkGetProximity(OruSdkFeatureParam *param);

/**
 * Sets the switch: proximity mode. Takes effect with the next commit.
 * Key "proximity" of "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetProximity
 */
ORUSDK_API uint32_t oruSdkSetProximity(OruSdkFeatureParam *param);

/**
 * Reads the switch: MIMO operation.
 * Key "mimoFlag" of "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetMimo
 */
ORUSDK_API uint32_t oruSdkGetMimo(OruSdkFeatureParam *param);

/**
 * Sets the switch: MIMO operation. Takes effect with the next commit.
 * Key "mimoFlag" of "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetMimo
 */
ORUSDK_API uint32_t oruSdkSetMimo(OruSdkFeatureParam *param);

/**
 * Reads the switch: the maker's own radio extensions.
 * Key "radioProprietaryExt" of "/var/wsmDefaults", one for both radios: radioIndex only has to be
 * valid.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetRadioProprietaryExt
 */
ORUSDK_API uint32_t oruSdkGetRadioProprietaryExt(OruSdkFeatureParam *param);

/**
 * Sets the switch: the maker's own radio extensions. Takes effect with the next commit.
 * Key "radioProprietaryExt" of "/var/wsmDefaults", one for both radios: radioIndex only has to be
 * valid.
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetRadioProprietaryExt
 */
ORUSDK_API uint32_t oruSdkSetRadioProprietaryExt(OruSdkFeatureParam *param);

/* ---- Numeric options of a radio ---------------------------------------------------------------
 */

/**
 * Reads the option: local power constraint, in dB.
 * Key "localPowerConstraint" of "/var/wsmDefaults", one for both radios: radioIndex only has to be
 * valid.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetLocalPowerConstraint
 */
ORUSDK_API uint32_t oruSdkGetLocalPowerConstraint(OruSdkOptionParam *param);

/**
 * Sets the option: local power constraint, in dB. Takes effect with the next commit.
 * Key "localPowerConstraint" of "/var/wsmDefaults", one for both radios: radioIndex only has to be
 * valid.
 * @param param radioIndex 0 or 1; featureOptions 0 to 30
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetLocalPowerConstraint
 */
ORUSDK_API uint32_t oruSdkSetLocalPowerConstraint(OruSdkOptionParam *param);

/**
 * Reads the option: longest A-MPDU, as an exponent: 2^(13 + value) - 1 bytes.
 * Key "radio%d.MaxMpduFactor" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetMaxMpduFactor
 */
ORUSDK_API uint32_t oruSdkGetMaxMpduFactor(OruSdkOptionParam *param);

/**
 * Sets the option: longest A-MPDU, as an exponent: 2^(13 + value) - 1 bytes. Takes effect with the
 * next commit. Key "radio%d.MaxMpduFactor" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions 0 to 3
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetMaxMpduFactor
 */
ORUSDK_API uint32_t oruSdkSetMaxMpduFactor(OruSdkOptionParam *param);

/**
 * Reads the option: smallest time between MPDUs of an A-MPDU, as its 802.11n class.
 * Key "radio%d.MpduDensity" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetMpduDensity
 */
ORUSDK_API uint32_t oruSdkGetMpduDensity(OruSdkOptionParam *param);

/**
 * Sets the option: smallest time between MPDUs of an A-MPDU, as its 802.11n class. Takes effect
 * with the next commit. Key "radio%d.MpduDensity" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions 0 to 7
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetMpduDensity
 */
ORUSDK_API uint32_t oruSdkSetMpduDensity(OruSdkOptionParam *param);

/**
 * Reads the option: automatic block acknowledgement.
 * Key "radio%d.BlockAckAuto" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetBlockAckAuto
 */
ORUSDK_API uint32_t oruSdkGetBlockAckAuto(OruSdkOptionParam *param);

/**
 * Sets the option: automatic block acknowledgement. Takes effect with the next commit.
 * Key "radio%d.BlockAckAuto" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions 0 to 1
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetBlockAckAuto
 */
ORUSDK_API uint32_t oruSdkSetBlockAckAuto(OruSdkOptionParam *param);

/**
 * Reads the option: the octet of the 20/40 MHz BSS coexistence element.
 * Key "bss2040CoexistElement" of "/var/wsmDefaults", one for both radios: radioIndex only has to be
 * valid.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetBss2040CoexistElement
 */
ORUSDK_API uint32_t oruSdkGetBss2040CoexistElement(OruSdkOptionParam *param);

/**
 * Sets the option: the octet of the 20/40 MHz BSS coexistence element. Takes effect with the next
 * commit. Key "bss2040CoexistElement" of "/var/wsmDefaults", one for both radios: radioIndex only
 * has to be valid.
 * @param param radioIndex 0 or 1; featureOptions 0 to 255
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetBss2040CoexistElement
 */
ORUSDK_API uint32_t oruSdkSetBss2040CoexistElement(OruSdkOptionParam *param);

/**
 * Reads the option: time between 20/40 MHz trigger scans, in seconds.
 * Key "dot11BSSWidthTriggerScanInterval" of "/var/wsmDefaults", one for both radios: radioIndex
 * only has to be valid.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetBssWidthTriggerScanInterval
 */
ORUSDK_API uint32_t oruSdkGetBssWidthTriggerScanInterval(OruSdkOptionParam *param);

/**
 * Sets the option: time between 20/40 MHz trigger scans, in seconds. Takes effect with the next
 * commit. Key "dot11BSSWidthTriggerScanInterval" of "/var/wsmDefaults", one for both radios:
 * radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; featureOptions 10 to 900
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetBssWidthTriggerScanInterval
 */
ORUSDK_API uint32_t oruSdkSetBssWidthTriggerScanInterval(OruSdkOptionParam *param);

/**
 * Reads the option: number of spatial streams.
 * Key "numSs" of "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetNumSs
 */
ORUSDK_API uint32_t oruSdkGetNumSs(OruSdkOptionParam *param);

/**
 * Sets the option: number of spatial streams. Takes effect with the next commit.
 * Key "numSs" of "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; featureOptions 0 to 3
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetNumSs
 */
ORUSDK_API uint32_t oruSdkSetNumSs(OruSdkOptionParam *param);

/**
 * Reads the option: transmit power adjustment, in steps of the radio.
 * Key "radio%d.txPowerAdj" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetTxPowerAdj
 */
ORUSDK_API uint32_t oruSdkGetTxPowerAdj(OruSdkOptionParam *param);

/**
 * Sets the option: transmit power adjustment, in steps of the radio. Takes effect with the next
 * commit. Key "radio%d.txPowerAdj" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions 0 to 30
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetTxPowerAdj
 */
ORUSDK_API uint32_t oruSdkSetTxPowerAdj(OruSdkOptionParam *param);

/**
 * Reads the option: transmit power class.
 * Key "radio%d.txPower" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetTxPower
 */
ORUSDK_API uint32_t oruSdkGetTxPower(OruSdkOptionParam *param);

/**
 * Sets the option: transmit power class. Takes effect with the next commit.
 * Key "radio%d.txPower" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions 0 to 2
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetTxPower
 */
ORUSDK_API uint32_t oruSdkSetTxPower(OruSdkOptionParam *param);

/**
 * Reads the option: network density, as a number of the radio's own scale.
 * Key "radio%d.networkDensityValue" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetNwkDensityValue
 */
ORUSDK_API uint32_t oruSdkGetNwkDensityValue(OruSdkOptionParam *param);

/**
 * Sets the option: network density, as a number of the radio's own scale. Takes effect with the
 * next commit. Key "radio%d.networkDensityValue" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions 0 to 65535
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetNwkDensityValue
 */
ORUSDK_API uint32_t oruSdkSetNwkDensityValue(OruSdkOptionParam *param);

/**
 * Reads the option: network density class.
 * Key "radio%d.networkDensity" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetNwkDensity
 */
ORUSDK_API uint32_t oruSdkGetNwkDensity(OruSdkOptionParam *param);

/**
 * Sets the option: network density class. Takes effect with the next commit.
 * Key "radio%d.networkDensity" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions 0 to 4
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetNwkDensity
 */
ORUSDK_API uint32_t oruSdkSetNwkDensity(OruSdkOptionParam *param);

/**
 * Reads the option: preamble: 0 long, 1 short.
 * Key "radio%d.shortPreambleFlag" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetPreambleType
 */
ORUSDK_API uint32_t oruSdkGetPreambleType(OruSdkOptionParam *param);

/**
 * Sets the option: preamble: 0 long, 1 short. Takes effect with the next commit.
 * Key "radio%d.shortPreambleFlag" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions 0 to 1
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetPreambleType
 */
ORUSDK_API uint32_t oruSdkSetPreambleType(OruSdkOptionParam *param);

/* ---- Radio information and world mode ------------------------------------------------------- */

/** What WSM tells of one radio: 96 bytes. */
typedef struct OruSdkRadioInfoEntry {
    char countryCode[3];    /**< ISO 3166 letters of the country, and one for the environment */
    uint16_t attr1;         /**< as WSM sent it; of no meaning to this library */
    uint16_t attr2;         /**< as attr1 */
    uint16_t attr3;         /**< as attr1 */
    uint16_t attr4;         /**< as attr1 */
    uint32_t attr5;         /**< as attr1 */
    uint8_t attr6;          /**< as attr1 */
    uint16_t attr7;         /**< as attr1 */
    uint16_t attr8;         /**< as attr1 */
    uint32_t attr9;         /**< as attr1 */
    uint8_t bandSupport[4]; /**< [2] is 0 on a product for 2.4 GHz only; the others as sent */
    uint8_t channelCount;   /**< channels that follow: below 60, save in an entry refused with 1 */
    uint8_t channels[63];   /**< allowed channel numbers, in WSM's order; the rest is left alone */
} OruSdkRadioInfoEntry;

/** The most radios that one reply of WSM can tell of. */
#define ORUSDK_RADIO_INFO_MAX_RADIOS 689u

/**
 * What WSM tells of its radios. The record has room for the access point's two radios; for a WSM
 * that may tell of more, allocate
 *
 *     sizeof(OruSdkRadioInfo) + (radios - 2) * sizeof(OruSdkRadioInfoEntry)
 *
 * bytes, with ORUSDK_RADIO_INFO_MAX_RADIOS for any WSM, and read the entries through a pointer:
 * `const OruSdkRadioInfoEntry *entry = info->entries;`.
 */
typedef struct OruSdkRadioInfo {
    uint8_t radioCount[4];           /**< entries filled, most significant byte first */
    OruSdkRadioInfoEntry entries[2]; /**< and more behind, where WSM tells of more radios */
} OruSdkRadioInfo;

/**
 * Asks WSM for its radios: country, allowed channels, bands. Asks afresh on each call.
 * @param info receives the radios; must have room for all that WSM tells of, see the record
 * @retval 0  filled; WSM that says nothing within the wait gives radioCount 0. A reply that ends
 *            inside an entry gives the whole entries before it
 * @retval 2  info is NULL
 * @retval 48 WSM can't be asked, or its reply can't be received
 * @retval 1  an entry has 60 channels or more; radioCount is left alone, the entries before it and
 *            the fixed fields of that entry are filled. Nothing is logged
 */
ORUSDK_API uint32_t oruSdkGetRadioInfo(OruSdkRadioInfo *info);

/** ISO 3166 alpha-2 codes of the world's countries in ascending order, "AD" to "ZW". */
ORUSDK_API extern const char *const oruSdkCountryStrings[244];

/** World mode. */
typedef struct OruSdkWorldModeParam {
    uint32_t worldModeSupport; /**< multi-domain operation: 0 off, 1 on; as stored on get */
    char countryCode[3];       /**< get only: two letters and a terminator */
} OruSdkWorldModeParam;

/**
 * Reads world mode, and the country: the configured one when "countryCodeFlag" is 1, else that of
 * radio 0 as WSM told it when the process first needed it; later empty when that question failed.
 * The letter of the environment is dropped.
 * Keys "worldModeSupport", "countryCodeFlag" and "countryCode" of "/var/wsmDefaults", device-wide.
 * @param param worldModeSupport and countryCode receive what is read, in this order
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or damaged
 * @retval 48 the country is the radio's, and this first question to WSM failed
 * @retval 1  the country is the radio's, and this first answer of WSM can't be read
 * @see oruSdkSetWorldMode
 */
ORUSDK_API uint32_t oruSdkGetWorldMode(OruSdkWorldModeParam *param);

/**
 * Sets world mode. The country keys are never written. Takes effect with the next commit.
 * Key "worldModeSupport" of "/var/wsmDefaults", device-wide.
 * @param param worldModeSupport 0 or 1
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 15 worldModeSupport is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetWorldMode
 */
ORUSDK_API uint32_t oruSdkSetWorldMode(OruSdkWorldModeParam *param);

/* ---- Channels ------------------------------------------------------------------------------- */

/** How a radio comes to its channel. */
typedef struct OruSdkChannelParam {
    uint32_t radioIndex;       /**< 0 or 1 */
    uint32_t channel;          /**< primary channel; 0: selected automatically */
    uint32_t secondaryChannel; /**< 40 MHz partner; 0: none. Of no meaning when channel is 0 */
    uint32_t autoSelMode;      /**< when channel is 0: selected 0 once, 1 periodically, 2 with the
                                    periodic settings left as they are */
    uint32_t periodicDfsTimer; /**< when autoSelMode is 1: interval, in a unit of WSM */
} OruSdkChannelParam;

/**
 * Reads how a radio comes to its channel. A fixed channel fills channel and secondaryChannel; an
 * automatic one sets channel to 0 and fills autoSelMode, and periodicDfsTimer when that is 1. The
 * other fields are left alone. Mode 2 is not stored: it reads as the periodic setting that it left.
 * Keys "radio%d.channelSelectionType" (2 is fixed), "radio%d.configuredChannel",
 * "radio%d.configuredSecondaryChannel", one per radio, "periodicDfsFlag" and "periodicDfsTmr",
 * device-wide, of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or no number; what was read before is filled
 * @see oruSdkSetChannelParam
 */
ORUSDK_API uint32_t oruSdkGetChannelParam(OruSdkChannelParam *param);

/**
 * Sets a radio's channel. A fixed channel must fit radar detection, 802.11 mode, channel bonding,
 * the product, the regulatory domain as WSM told it when the process first needed it, and the fixed
 * rate; an automatic one is not checked, yet the keys of the first three must be readable. Takes
 * effect with the next commit.
 * Keys as in oruSdkGetChannelParam(), and "periodicMeasFlag" and "measurementDisabled",
 * device-wide; a fixed channel and autoSelMode 0 switch periodic measurement off, autoSelMode 1 on.
 * An automatic channel stores 0 for both channels; a fixed one of 5 GHz sets
 * "radio%d.broadcastRate5GHz" to 69. Reads "radio%d.radarDetectFlag", "radio%d.channelBondingMode"
 * and "radio%d.dot11Mode", and for a fixed channel "radio%d.bandType" and "radio%d.fixedRate". When
 * WSM could not be asked, no channel counts as allowed (88); later calls, and all when WSM did not
 * answer, refuse those of 5 GHz with 93.
 * @param param radioIndex 0 or 1; channel 0 with autoSelMode 0 to 2 (and any periodicDfsTimer when
 *              that is 1), or a channel that exists with secondaryChannel 0 or four channels apart
 * @retval 0   written
 * @retval 2   param is NULL
 * @retval 3   radioIndex is 2 or more
 * @retval 7   the file can't be loaded
 * @retval 42  a key that a check needs is missing or no number; each is read by its check
 * @retval 120 a radar channel while radar detection is on
 * @retval 106 channel bonding is on and there is no secondaryChannel; after the second check of 19,
 *             secondaryChannel does not exist, is not four channels apart, or is no partner of the
 *             channel at 5 GHz (36/40, 44/48 and so on; 140 has none)
 * @retval 19  a channel above 14 in an 802.11b/g mode, or 1 to 14 in 802.11a; after 20, no such
 *             channel: 14 exists without channel bonding alone
 * @retval 20  channel is 0 and autoSelMode above 2
 * @retval 93  the product is for 2.4 GHz only and the channel is not
 * @retval 88  the channel is not allowed in the band and the regulatory domain of the radio, nor,
 *             with channel bonding, the secondary one
 * @retval 64  channel 14 in Japan outside the 802.11b mode
 * @retval 69  an 802.11b fixed rate (codes 65 to 68 here) at 5 GHz
 * @retval 25  a key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetChannelParam
 */
ORUSDK_API uint32_t oruSdkSetChannelParam(OruSdkChannelParam *param);

/* ---- DFS and preferred channels ------------------------------------------------------------- */

/** Items of OruSdkDfsParam that are set one by one. */
enum {
    ORUSDK_DFS_PREFERRED_BAND = 4,    /**< preferredBand */
    ORUSDK_DFS_WEIGHT_MARGIN = 5,     /**< weightMargin */
    ORUSDK_DFS_CB_SWITCH = 6,         /**< cbSwitch */
    ORUSDK_DFS_PERSIST_RDR = 7,       /**< persistRdr */
    ORUSDK_DFS_FORCE_CH_SEL = 8,      /**< forceChSelChan */
    ORUSDK_DFS_RDR_PARKING = 9,       /**< rdrParking */
    ORUSDK_DFS_RDR_WEIGHT_FACTOR = 10 /**< rdrChanWghtFactor */
};

/** Dynamic frequency selection. All items are device-wide. */
typedef struct OruSdkDfsParam {
    uint8_t radioIndex;           /**< 0 or 1 */
    uint8_t paramId;              /**< item to set, ORUSDK_DFS_... */
    uint8_t preferred24GPrimChan; /**< preferred primary channel at 2.4 GHz */
    uint8_t preferred24GSecdChan; /**< and its 40 MHz partner */
    uint8_t preferred5GPrimChan;  /**< preferred primary channel at 5 GHz */
    uint8_t preferred5GSecdChan;  /**< and its 40 MHz partner */
    uint8_t lowUniiBand;          /**< 5 GHz sub-bands that may be used: 0 or 1 */
    uint8_t midUniiBand;          /**< 0 or 1 */
    uint8_t highUniiBand;         /**< 0 or 1 */
    uint8_t preferredBand;        /**< 0 to 2 */
    uint8_t weightMargin;         /**< 0 to 100 */
    uint8_t persistRdr;           /**< remember channels with radar: 0 or 1 */
    uint8_t forceChSelChan;       /**< force a channel selection: 0 or 1 */
    uint8_t rdrParking;           /**< radar parking: 0 or 1 */
    uint32_t cbSwitch;            /**< channel bonding switch: 0 to 1000000000 */
    uint32_t rdrChanWghtFactor;   /**< weight factor of channels with radar: 0 to 1000000000 */
} OruSdkDfsParam;

/**
 * Reads all items of dynamic frequency selection, each filled as soon as it is read; the fields of
 * 8 bits keep the low 8 bits of what is stored.
 * Keys of "/var/wsmDefaults", in this order: "dfsPreferred24GPrimChan", "dfsPreferred24GSecdChan",
 * "dfsPreferred5GPrimChan", "dfsPreferred5GSecdChan", "dfsLowUNIIBand", "dfsMidUNIIBand",
 * "dfsHighUNIIBand", "dfsPreferredBand", "dfsWeightMargin", "cbSwitch", "dfsPersistRdr",
 * "dfsForceChSelChan", "dfsRdrParking", "dfsRdrChanWghtFactor", device-wide.
 * @param param radioIndex 0 or 1; all fields behind paramId receive what is stored
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or no number
 * @see oruSdkSetDfsUniiBands, oruSdkSetDfsParamEnable, oruSdkSetDfsParamValue,
 * oruSdkSetDfsPrefChans
 */
ORUSDK_API uint32_t oruSdkGetDfsParam(OruSdkDfsParam *param);

/**
 * Sets the three 5 GHz sub-bands that may be used, one after the other: a failure leaves those
 * before it saved. Takes effect with the next commit.
 * Keys "dfsLowUNIIBand", "dfsMidUNIIBand", "dfsHighUNIIBand" of "/var/wsmDefaults", device-wide.
 * @param param radioIndex 0 or 1; lowUniiBand, midUniiBand and highUniiBand 0 or 1
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 the flag is neither 0 nor 1; looked at when its turn comes
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetDfsParam
 */
ORUSDK_API uint32_t oruSdkSetDfsUniiBands(OruSdkDfsParam *param);

/**
 * Sets one on/off item. Takes effect with the next commit.
 * Keys "dfsPersistRdr", "dfsForceChSelChan", "dfsRdrParking" of "/var/wsmDefaults", device-wide.
 * @param param radioIndex 0 or 1; paramId ORUSDK_DFS_PERSIST_RDR, ORUSDK_DFS_FORCE_CH_SEL or
 *              ORUSDK_DFS_RDR_PARKING, and 0 or 1 in the field of that item
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 40 paramId is another
 * @retval 3  radioIndex is 2 or more
 * @retval 47 the item is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetDfsParam
 */
ORUSDK_API uint32_t oruSdkSetDfsParamEnable(OruSdkDfsParam *param);

/**
 * Sets one numeric item. Takes effect with the next commit.
 * Keys "dfsPreferredBand", "dfsWeightMargin", "cbSwitch", "dfsRdrChanWghtFactor" of
 * "/var/wsmDefaults", device-wide.
 * @param param radioIndex 0 or 1; paramId ORUSDK_DFS_PREFERRED_BAND, ORUSDK_DFS_WEIGHT_MARGIN,
 *              ORUSDK_DFS_CB_SWITCH or ORUSDK_DFS_RDR_WEIGHT_FACTOR, and a value in the field of
 *              that item within its range
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 40 paramId is another
 * @retval 3  radioIndex is 2 or more
 * @retval 47 the item is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetDfsParam
 */
ORUSDK_API uint32_t oruSdkSetDfsParamValue(OruSdkDfsParam *param);

/**
 * Sets the preferred channels of one band, and the preferred band. Takes effect with the next
 * commit.
 * Keys "dfsPreferred24GPrimChan" and "dfsPreferred24GSecdChan", or "dfsPreferred5GPrimChan" and
 * "dfsPreferred5GSecdChan", and "dfsPreferredBand" of "/var/wsmDefaults", device-wide. Reads
 * "radio%d.channelBondingMode", where a missing one counts as 0; at 5 GHz also "radio%d.dot11Mode"
 * and what WSM told when the process first needed it: where either is missing, no channel counts as
 * allowed.
 * @param param radioIndex 0 or 1, not checked; preferredBand, not checked; the two channels of the
 *              band: at 2.4 GHz a primary channel of 1 to 14 (13 with channel bonding) and a
 *              secondary one of 1 to 13, four apart, whatever the bonding; at 5 GHz channels that
 *              WSM allows, where without bonding 0 is stored for the secondary one
 * @param band  1 for 5 GHz, 2 for 2.4 GHz
 * @retval 0   written
 * @retval 2   param is NULL
 * @retval 40  band is another
 * @retval 7   the file can't be loaded
 * @retval 19  2.4 GHz: the channels are invalid
 * @retval 88  5 GHz: the primary channel is not allowed
 * @retval 106 5 GHz with channel bonding: the secondary channel is not allowed
 * @retval 25  a key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetDfsParam
 */
ORUSDK_API uint32_t oruSdkSetDfsPrefChans(OruSdkDfsParam *param, uint8_t band);

/* ---- Radar detection ------------------------------------------------------------------------ */

/**
 * Reads whether a radio detects radar.
 * Key "radio%d.radarDetectFlag" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetRadarDetect
 */
ORUSDK_API uint32_t oruSdkGetRadarDetect(OruSdkFeatureParam *param);

/**
 * Switches a radio's radar detection, on or off, while its configured channel is no radar channel
 * (52 to 64 and 100 to 140). Takes effect with the next commit.
 * Key "radio%d.radarDetectFlag" of "/var/wsmDefaults", one per radio. Reads
 * "radio%d.configuredChannel".
 * @param param radioIndex 0 or 1; activationFlag 0 (off) or 1 (on)
 * @retval 0   written
 * @retval 2   param is NULL
 * @retval 3   radioIndex is 2 or more
 * @retval 47  activationFlag is neither 0 nor 1
 * @retval 7   the file can't be loaded
 * @retval 42  a key is missing or no number; the channel is read after the check of 121
 * @retval 121 the switch is in that state already; nothing is logged
 * @retval 122 the configured channel is a radar channel; nothing is logged. oruSdkRcStr[] has no
 *             such entry
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetRadarDetect
 */
ORUSDK_API uint32_t oruSdkSetRadarDetect(OruSdkFeatureParam *param);

/**
 * Replaces the list of channels on which radar was seen, which outlives a restart. Takes effect
 * when WSM next reads the list.
 * Key "rdrChans" of "/config/wsmSavedRadarDetectList", device-wide.
 * @param channels the list, NUL-terminated, in the form that WSM reads; stored as it is
 * @retval 0  written
 * @retval 2  channels is NULL
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 */
ORUSDK_API uint32_t oruSdkSetRdrPersistChan(const char *channels);

/* ---- Radio persona and channel set ---------------------------------------------------------- */

/**
 * Reads which persona a radio has.
 * Key "radio%d.persona" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetRadioPersona
 */
ORUSDK_API uint32_t oruSdkGetRadioPersona(OruSdkOptionParam *param);

/**
 * Sets a radio's persona. Takes effect with the next commit.
 * Key "radio%d.persona" of "/var/wsmDefaults", one per radio. For 0, asks WSM whether the product
 * is 802.11b/g-only, once in a process. When the request fails, this call takes it for no and later
 * ones for yes; when WSM stays silent, all take it for yes.
 * @param param radioIndex 0 or 1; featureOptions 0 (any), 1 or 2 (meanings are WSM's)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is above 2
 * @retval 7  the file can't be loaded
 * @retval 95 featureOptions is 0 and the product is 802.11b/g-only
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetRadioPersona
 */
ORUSDK_API uint32_t oruSdkSetRadioPersona(OruSdkOptionParam *param);

/**
 * Reads the band that a radio may work in, its channel set.
 * Key "radio%d.bandType" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetChannelSet
 */
ORUSDK_API uint32_t oruSdkGetChannelSet(OruSdkOptionParam *param);

/**
 * Sets the band that a radio may work in, its channel set. Takes effect with the next commit.
 * Key "radio%d.bandType" of "/var/wsmDefaults", one per radio; reads "radio%d.fixedRate". For 0 and
 * 2, asks WSM whether the product is 802.11b/g-only, as oruSdkSetRadioPersona() does.
 * @param param radioIndex 0 or 1; featureOptions 0 (any band), 1 (2.4 GHz) or 2 (5 GHz)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is above 2
 * @retval 7  the file can't be loaded
 * @retval 94 featureOptions is 0 or 2 and the product is 802.11b/g-only
 * @retval 42 the fixed rate is missing or no number
 * @retval 62 featureOptions is 0 or 2 and the stored fixed rate is 65 to 68
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetChannelSet
 */
ORUSDK_API uint32_t oruSdkSetChannelSet(OruSdkOptionParam *param);

/* ---- 802.11 mode ---------------------------------------------------------------------------- */

/**
 * Reads a radio's 802.11 mode.
 * Key "radio%d.dot11Mode" of "/var/wsmDefaults", one per radio.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetDot11Mode
 */
ORUSDK_API uint32_t oruSdkGetDot11Mode(OruSdkOptionParam *param);

/**
 * Sets a radio's 802.11 mode. Takes effect with the next commit.
 * Keys "radio%d.dot11Mode", one per radio, and "ERPFlag", one for both radios: "0" with mode 2, "1"
 * with every other one; both in "/var/wsmDefaults". Reads "radio%d.bandType"; for modes 2, 3, 4 and
 * 9 "radio%d.standardExt", "radio%d.channelSelectionType" and "radio%d.configuredChannel"; for mode
 * 2 "radio%d.fixedRate" and "radio%d.adminDot11bStaFlag". With channel 14 set by hand, asks WSM for
 * the radio's country, once in a process: after a request that failed, later calls find none.
 * @param param radioIndex 0 or 1; featureOptions 0 to 9: 2 is 802.11b only, 9 is 802.11n only; 0
 *              and 4 take MCS rates
 * @retval 0   written
 * @retval 2   param is NULL
 * @retval 3   radioIndex is 2 or more
 * @retval 47  featureOptions is above 9
 * @retval 7   the file can't be loaded
 * @retval 42  a key is missing or no number (when its turn comes)
 * @retval 107 mode 2 or 3 in the 5 GHz band
 * @retval 18  mode 1 in the 2.4 GHz band
 * @retval 59  mode 2, 3, 4 or 9 without standard extensions
 * @retval 48  mode 2, 3, 4 or 9 on channel 14, and the first request to WSM fails
 * @retval 1   the same, and WSM's answer is damaged
 * @retval 64  mode 2, 3, 4 or 9 on channel 14 in Japan
 * @retval 63  mode 2, and the stored fixed rate is 69 to 76
 * @retval 71  mode 2, and 802.11b stations are refused
 * @retval 25  the mode can't be written ("ERPFlag": 42)
 * @retval 8   the file can't be saved
 * @see oruSdkGetDot11Mode
 */
ORUSDK_API uint32_t oruSdkSetDot11Mode(OruSdkOptionParam *param);

/* ---- Rate codes and rates ------------------------------------------------------------------- */

/*
 * Rates are stored, and read back, as internal codes:
 *
 *     0            automatic
 *     1 to 128     MCS 0 to 31: MCS + 1, plus 64 in 40 MHz channels, plus 32 with the short guard
 *                  interval
 *     129 to 140   1, 2, 5.5, 6, 9, 11, 12, 18, 24, 36, 48 and 54 Mbps
 *     141, 142     MCS 32, with the long and the short guard interval
 */

/**
 * The supported-rate octets of the legacy rates: 12 pairs of two hexadecimal digits (bit 0x80 set)
 * and the rate in Mbps. The four 802.11b rates come first.
 */
ORUSDK_API extern const char *const rateMap[24];

/**
 * Converts a legacy rate to its internal code.
 * @param externalRate Mbps: 1, 2, 5 (5.5), 6, 9, 11, 12, 18, 24, 36, 48 or 54
 * @return 129 to 140; 6 for any other rate
 */
ORUSDK_API uint32_t convertExtToIntRateCode(int32_t externalRate);

/**
 * Reads a radio's fixed rate.
 * Key "radio%d.fixedRate" of "/var/wsmDefaults", one per radio, shared by legacy and MCS rates:
 * gives whichever was set last.
 * @param param radioIndex 0 or 1; featureOptions receives the internal code as it is stored
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetRateParam
 */
ORUSDK_API uint32_t oruSdkGetRateParam(OruSdkOptionParam *param);

/**
 * Sets a radio's fixed rate to a legacy rate. Takes effect with the next commit.
 * Key "radio%d.fixedRate" of "/var/wsmDefaults", one per radio, shared with
 * oruSdkSetMcsRateParam(). Reads "radio%d.dot11Mode", "radio%d.configuredChannel" and
 * "radio%d.bandType". Writes trace lines to the log.
 * @param param radioIndex 0 or 1; featureOptions 1, 2, 5 (5.5), 6, 9, 11, 12, 18, 24, 36, 48 or 54
 *              Mbps, or 160 (automatic); holds the internal code once the rate is accepted, also
 *              after 25 and 8
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or no number (the band type: after 6)
 * @retval 6  no such rate
 * @retval 67 kept for 802.11b rates in 5 GHz; no rate comes to it
 * @retval 68 any rate but 160, in the 2.4 GHz band with 802.11 mode 2
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetRateParam, oruSdkSetMcsRateParam
 */
ORUSDK_API uint32_t oruSdkSetRateParam(OruSdkOptionParam *param);

/**
 * Reads a radio's fixed rate; the same as oruSdkGetRateParam().
 * Key "radio%d.fixedRate" of "/var/wsmDefaults", one per radio, shared by legacy and MCS rates:
 * gives whichever was set last.
 * @param param radioIndex 0 or 1; featureOptions receives the internal code as it is stored
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetMcsRateParam
 */
ORUSDK_API uint32_t oruSdkGetMcsRateParam(OruSdkOptionParam *param);

/**
 * Sets a radio's fixed rate to an MCS rate. Takes effect with the next commit.
 * Key "radio%d.fixedRate" of "/var/wsmDefaults", one per radio, shared with oruSdkSetRateParam().
 * Reads "radio%d.dot11Mode", "radio%d.channelBondingMode" and "radio%d.ShortGuardInterval40MHz" or,
 * without bonding, "radio%d.ShortGuardInterval20MHz".
 * @param param radioIndex 0 or 1; featureOptions MCS 0 to 32, or 160 (automatic); holds the
 *              internal code once the rate is accepted, also after 25 and 8
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or no number; this and 6 leave a dictionary allocated, on purpose
 * @retval 6  no such MCS, or the 802.11 mode is neither 0 nor 4
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetMcsRateParam, oruSdkSetRateParam
 */
ORUSDK_API uint32_t oruSdkSetMcsRateParam(OruSdkOptionParam *param);

/**
 * Reads the rate of a radio's broadcast frames. Writes a trace line to the log.
 * Key "radio%d.broadcastRate5GHz" of "/var/wsmDefaults" when "radio%d.bandType" is 2, else
 * "radio%d.broadcastRate24GHz"; shared by legacy and MCS rates: gives whichever was set last.
 * @param param radioIndex 0 or 1; featureOptions receives the internal code as it is stored
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the band type or the key is missing or no number
 * @see oruSdkSetBroadcastRate
 */
ORUSDK_API uint32_t oruSdkGetBroadcastRate(OruSdkOptionParam *param);

/**
 * Sets the rate of a radio's broadcast frames to a legacy rate. Takes effect with the next commit.
 * Key "radio%d.broadcastRate5GHz" of "/var/wsmDefaults" when "radio%d.bandType" is 2, else
 * "radio%d.broadcastRate24GHz". Reads "radio%d.dot11Mode" and "radio%d.configuredChannel". Writes
 * trace lines to the log.
 * @param param radioIndex 0 or 1; featureOptions 1, 2, 5 (5.5), 6, 9, 11, 12, 18, 24, 36, 48 or 54
 *              Mbps; holds the internal code once the rate is accepted, also after 25 and 8
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the band type is missing or no number; after 47, the same of another key
 * @retval 47 featureOptions is above 54; 160 is not taken here
 * @retval 6  no such rate
 * @retval 67 kept for 802.11b rates in 5 GHz; no rate comes to it
 * @retval 68 any rate, in the 2.4 GHz band with 802.11 mode 2
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetBroadcastRate, oruSdkSetBroadcastMcsRate
 */
ORUSDK_API uint32_t oruSdkSetBroadcastRate(OruSdkOptionParam *param);

/**
 * Reads the rate of a radio's broadcast frames.
 * Key "radio%d.broadcastRate5GHz" of "/var/wsmDefaults" when "radio%d.bandType" is 2, else
 * "radio%d.broadcastRate24GHz"; shared by legacy and MCS rates: gives whichever was set last.
 * @param param radioIndex 0 or 1; featureOptions receives the internal code as it is stored
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the band type or the key is missing or no number
 * @see oruSdkSetBroadcastMcsRate
 */
ORUSDK_API uint32_t oruSdkGetBroadcastMcsRate(OruSdkOptionParam *param);

/**
 * Sets the rate of a radio's broadcast frames to an MCS rate. Takes effect with the next commit.
 * Key "radio%d.broadcastRate5GHz" of "/var/wsmDefaults" when "radio%d.bandType" is 2, else
 * "radio%d.broadcastRate24GHz". Reads what oruSdkSetMcsRateParam() reads.
 * @param param radioIndex 0 or 1; featureOptions MCS 0 to 31; holds the internal code once the rate
 *              is accepted, also after 25 and 8
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the band type is missing or no number; after 47, the same of another key
 * @retval 47 featureOptions is above 31; MCS 32 and 160 are not taken here
 * @retval 6  the 802.11 mode is neither 0 nor 4
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetBroadcastMcsRate, oruSdkSetBroadcastRate
 */
ORUSDK_API uint32_t oruSdkSetBroadcastMcsRate(OruSdkOptionParam *param);

/** The maximum data rate. */
typedef struct OruSdkMaxRateParam {
    uint32_t radioIndex; /**< 0 or 1; only has to be valid */
    uint32_t maxRate;    /**< Mbps, 0 to 300 */
} OruSdkMaxRateParam;

/**
 * Reads the maximum data rate.
 * Key "MaxRate" of "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; maxRate receives the stored number, in Mbps
 * @retval 0  read
 * @retval 2  param is NULL; also, last of all, when the stored number is 0: it counts as absent
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetMaxRate
 */
ORUSDK_API uint32_t oruSdkGetMaxRate(OruSdkMaxRateParam *param);

/**
 * Sets the maximum data rate. Takes effect with the next commit.
 * Key "MaxRate" of "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; maxRate 0 to 300 Mbps, where 0 makes the getter fail
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 22 maxRate is above 300
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetMaxRate
 */
ORUSDK_API uint32_t oruSdkSetMaxRate(OruSdkMaxRateParam *param);

/* ---- Basic rate sets ------------------------------------------------------------------------ */

/** The basic rates of one family, as a setter takes them. */
typedef struct OruSdkBasicRateSetParam {
    uint32_t radioIndex; /**< 0 or 1 */
    uint32_t rateMode;   /**< 0 802.11a, 1 802.11b, 2 802.11g, 3 802.11n */
    char rateSet[64];    /**< rates in Mbps, separated by blanks: "1 2 5.5 11" */
} OruSdkBasicRateSetParam;

/** The basic rates of all families, as a getter gives them. */
typedef struct OruSdkBasicRateSetInfo {
    uint32_t radioIndex;  /**< 0 or 1 */
    char dot11aRates[64]; /**< rates in Mbps, separated by blanks */
    char dot11bRates[64]; /**< as dot11aRates */
    char dot11gRates[64]; /**< as dot11aRates */
    char dot11nRates[64]; /**< as dot11aRates */
} OruSdkBasicRateSetInfo;

/**
 * Reads the basic rates of every family. Keys "radio%d.dot11aRates", "radio%d.dot11bRates",
 * "radio%d.dot11gRates", "radio%d.dot11nRates" of "/var/wsmDefaults", in this order.
 * @param info radioIndex 0 or 1; each text receives its family's basic rates in the stored order,
 *             at most as many whole ones as fit. The text of a family without any is left as
 *             it was: clear the record beforehand
 * @retval 0  read
 * @retval 2  info is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or damaged; the texts before it are filled
 * @see oruSdkSetBasicRateSetParam
 */
ORUSDK_API uint32_t oruSdkGetBasicRateSetParam(OruSdkBasicRateSetInfo *info);

/**
 * Sets the basic rates of one family. Takes effect with the next commit. Key "radio%d.dot11aRates",
 * "radio%d.dot11bRates", "radio%d.dot11gRates" or "radio%d.dot11nRates" of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; rateMode 0 to 3; rateSet any of "1 2 5.5 11" for 802.11b, of
 *              "6 9 12 18 24 36 48 54" for the others, in any order; empty for no basic rate. With
 *              802.11n only the digits that a rate begins with count: "6.5" is taken as 6
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 21 rateMode is 4 or more
 * @retval 22 rateSet names a rate that is none of its family
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetBasicRateSetParam
 */
ORUSDK_API uint32_t oruSdkSetBasicRateSetParam(OruSdkBasicRateSetParam *param);

/* ---- MAC, beacon, retry and threshold parameters -------------------------------------------- */

/** MAC thresholds and retry limits of a radio. */
typedef struct OruSdkDot11MacParam {
    uint32_t radioIndex;      /**< 0 or 1 */
    uint32_t fragThreshold;   /**< fragmentation threshold in bytes, 256 to 2346 */
    uint32_t rtsThreshold;    /**< RTS threshold in bytes, 1 to 2347 */
    uint32_t shortRetryLimit; /**< 0 to 255 */
    uint32_t longRetryLimit;  /**< 0 to 255 */
} OruSdkDot11MacParam;

/** Beacon timing of a radio. */
typedef struct OruSdkBeaconParam {
    uint32_t radioIndex;   /**< 0 or 1 */
    uint32_t beaconPeriod; /**< in time units, 1 to 65535 */
    uint32_t dtimPeriod;   /**< in beacons, 1 to 255 */
} OruSdkBeaconParam;

/**
 * Reads the thresholds and retry limits, in the order of the record. Keys "radio%d.fragThPeriod",
 * "radio%d.rtsThPeriod", "radio%d.shortRetryLimit", "radio%d.longRetryLimit" of
 * "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; the other fields receive the stored numbers as they are
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or no number; the fields before it are filled
 * @see oruSdkSetDot11MacParam
 */
ORUSDK_API uint32_t oruSdkGetDot11MacParam(OruSdkDot11MacParam *param);

/**
 * Sets the thresholds and retry limits. Takes effect with the next commit. Keys
 * "radio%d.fragThPeriod", "radio%d.rtsThPeriod", "radio%d.shortRetryLimit",
 * "radio%d.longRetryLimit" of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; fragThreshold 256 to 2346 bytes; rtsThreshold 1 to 2347 bytes;
 *              shortRetryLimit and longRetryLimit 0 to 255
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 11 fragThreshold is out of range
 * @retval 12 rtsThreshold is out of range
 * @retval 13 shortRetryLimit is out of range
 * @retval 14 longRetryLimit is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 a key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetDot11MacParam
 */
ORUSDK_API uint32_t oruSdkSetDot11MacParam(OruSdkDot11MacParam *param);

/**
 * Reads the beacon period, then the DTIM period. Keys "radio%d.beaconPeriod" and
 * "radio%d.dtimPeriod" of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; the other fields receive the stored numbers as they are
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or no number; the field before it is filled
 * @see oruSdkSetBeaconParam
 */
ORUSDK_API uint32_t oruSdkGetBeaconParam(OruSdkBeaconParam *param);

/**
 * Sets the beacon and DTIM periods. Takes effect with the next commit. Keys "radio%d.beaconPeriod"
 * and "radio%d.dtimPeriod" of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; beaconPeriod 1 to 65535 time units; dtimPeriod 1 to 255 beacons
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 9  beaconPeriod is out of range
 * @retval 10 dtimPeriod is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 a key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetBeaconParam
 */
ORUSDK_API uint32_t oruSdkSetBeaconParam(OruSdkBeaconParam *param);

/* ---- Protection, standard extensions, scanning and admission -------------------------------- */

/** 802.11g protection. */
typedef struct OruSdkProtectionParam {
    uint32_t radioIndex;     /**< 0 or 1 */
    uint32_t prtnEnable;     /**< 0 to 4; 4 says that protectionMode is given */
    uint32_t protectionMode; /**< any number; only with prtnEnable 4 */
} OruSdkProtectionParam;

/** A switch that other settings depend on. */
typedef struct OruSdkRadioSwitchParam {
    uint16_t reserved;   /**< neither read nor written */
    uint16_t radioIndex; /**< 0 or 1 */
    uint32_t enable;     /**< 0 or 1 */
} OruSdkRadioSwitchParam;

/**
 * Reads 802.11g protection. Key "radio%d.dot11Protection" and, when it holds 4,
 * "radio%d.ProtectionMode" of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; prtnEnable receives the stored number as it is; protectionMode
 *              is left as it was unless prtnEnable is 4
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or no number
 * @see oruSdkSetDot11Protection
 */
ORUSDK_API uint32_t oruSdkGetDot11Protection(OruSdkProtectionParam *param);

/**
 * Sets 802.11g protection. Takes effect with the next commit. Keys "radio%d.dot11Protection", with
 * prtnEnable 4 "radio%d.ProtectionMode", and "dot11gShortSlotTime" of "/var/wsmDefaults": the
 * last is shared by both radios and takes protectionMode with prtnEnable 4, else prtnEnable.
 * @param param radioIndex 0 or 1; prtnEnable 0 to 4; protectionMode any number
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 51 prtnEnable is 5 or more
 * @retval 7  the file can't be loaded
 * @retval 25 a key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetDot11Protection
 */
ORUSDK_API uint32_t oruSdkSetDot11Protection(OruSdkProtectionParam *param);

/**
 * Reads whether the standard extensions are on. Key "radio%d.standardExt" of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; enable receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetDot11StdExt
 */
ORUSDK_API uint32_t oruSdkGetDot11StdExt(OruSdkRadioSwitchParam *param);

/**
 * Turns the standard extensions on or off. Off makes the radio an 802.11b-only one and turns WMM
 * off for both radios. Takes effect with the next commit. Key "radio%d.standardExt" of
 * "/var/wsmDefaults"; with enable 0 also "radio%d.dot11Mode" (2), "wmmEnabledFlag" (0) and
 * "adminDot11bStaFlag" (1; not the key of oruSdkSetStaAcceptCriteria()).
 * @param param radioIndex 0 or 1; enable 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 53 enable is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 a key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetDot11StdExt
 */
ORUSDK_API uint32_t oruSdkSetDot11StdExt(OruSdkRadioSwitchParam *param);

/**
 * Reads whether background scanning is on. Key "measurementDisabled" of "/var/wsmDefaults", one for
 * both radios, stored inverted: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; enable receives 0 when the key holds 1, else 1
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetBgScanning
 */
ORUSDK_API uint32_t oruSdkGetBgScanning(OruSdkRadioSwitchParam *param);

/**
 * Turns background scanning on or off. Takes effect with the next commit. Key "measurementDisabled"
 * of "/var/wsmDefaults", one for both radios, stored inverted: radioIndex only has to be valid.
 * With enable 0 reads "periodicDfsFlag" first.
 * @param param radioIndex 0 or 1; enable 0 (off) or 1 (on)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 55 enable is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 42 enable is 0 and "periodicDfsFlag" is missing or no number
 * @retval 61 enable is 0 while periodic DFS is on
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetBgScanning
 */
ORUSDK_API uint32_t oruSdkSetBgScanning(OruSdkRadioSwitchParam *param);

/**
 * Reads whether 802.11b stations are admitted. Key "radio%d.adminDot11bStaFlag" of
 * "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; enable receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetStaAcceptCriteria
 */
ORUSDK_API uint32_t oruSdkGetStaAcceptCriteria(OruSdkRadioSwitchParam *param);

/**
 * Admits or rejects 802.11b stations. Takes effect with the next commit. Key
 * "radio%d.adminDot11bStaFlag" of "/var/wsmDefaults"; with enable 0 reads "radio%d.standardExt" and
 * "radio%d.dot11Mode" first.
 * @param param radioIndex 0 or 1; enable 0 (reject) or 1 (admit)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 56 enable is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 42 enable is 0 and a key that it needs is missing or no number
 * @retval 59 enable is 0 while the standard extensions are off
 * @retval 60 enable is 0 while the radio is an 802.11b-only one
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetStaAcceptCriteria
 */
ORUSDK_API uint32_t oruSdkSetStaAcceptCriteria(OruSdkRadioSwitchParam *param);

/**
 * Reads the threshold and the counter of smart background scanning (SBS). Keys
 * "radio%d.sbsThreshold" and "radio%d.sbsCounter" of "/var/wsmDefaults".
 * @param radioIndex 0 or 1
 * @param threshold  receives the stored number as it is; 1, with a warning, when it can't be read
 * @param counter    receives the stored number as it is
 * @retval 0  read
 * @retval 3  radioIndex is neither 0 nor 1; checked before the pointers
 * @retval 2  threshold or counter is NULL
 * @retval 7  the file can't be loaded
 * @retval 42 the counter's key is missing or no number; threshold is filled
 * @see oruSdkSetSbsParams
 */
ORUSDK_API uint32_t oruSdkGetSbsParams(int32_t radioIndex, uint32_t *threshold, uint32_t *counter);

/**
 * Sets the threshold and the counter of smart background scanning (SBS). Takes effect with the next
 * commit. Keys "radio%d.sbsThreshold" and "radio%d.sbsCounter" of "/var/wsmDefaults".
 * @param radioIndex 0 or 1
 * @param threshold  any number
 * @param counter    any number
 * @retval 0  written
 * @retval 3  radioIndex is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 a key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetSbsParams
 */
ORUSDK_API uint32_t oruSdkSetSbsParams(int32_t radioIndex, uint32_t threshold, uint32_t counter);

/* ---- QoS and channel bonding ---------------------------------------------------------------- */

/** WMM and the traffic classifier. */
typedef struct OruSdkWmmParam {
    uint32_t radioIndex;        /**< 0 or 1 */
    uint32_t wmmEnabled;        /**< 0 off, 1 on */
    uint32_t trafficClassifier; /**< 0 disabled, 1 automatic, 2 WMM standard, 3 enhanced */
} OruSdkWmmParam;

/**
 * Reads WMM, then the traffic classifier. Keys "wmmEnabledFlag" and "TrafficClassifier" of
 * "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; the other fields receive the stored numbers as they are
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or no number; the field before it is filled
 * @see oruSdkSetWmm
 */
ORUSDK_API uint32_t oruSdkGetWmm(OruSdkWmmParam *param);

/**
 * Sets WMM and the traffic classifier. Takes effect with the next commit. Keys "wmmEnabledFlag" and
 * "TrafficClassifier" of "/var/wsmDefaults", one for both radios. WMM needs the standard extensions
 * of the given radio ("radio%d.standardExt").
 * @param param radioIndex 0 or 1; wmmEnabled 0 or 1; trafficClassifier 0 to 3
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 49 wmmEnabled is neither 0 nor 1, or trafficClassifier is 4 or more
 * @retval 7  the file can't be loaded
 * @retval 42 wmmEnabled is 1 and "radio%d.standardExt" is missing or no number
 * @retval 59 wmmEnabled is 1 while the standard extensions are off
 * @retval 25 a key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetWmm
 */
ORUSDK_API uint32_t oruSdkSetWmm(OruSdkWmmParam *param);

/**
 * Reads the EDCA profile. Key "edcaProfile" of "/var/wsmDefaults", one for both radios: radioIndex
 * only has to be valid.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetEdcaProfile
 */
ORUSDK_API uint32_t oruSdkGetEdcaProfile(OruSdkOptionParam *param);

/**
 * Sets the EDCA profile. Takes effect with the next commit. Key "edcaProfile" of
 * "/var/wsmDefaults", one for both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; featureOptions 0 (Tavon) or 1 (WMM)
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetEdcaProfile
 */
ORUSDK_API uint32_t oruSdkSetEdcaProfile(OruSdkOptionParam *param);

/**
 * Reads the dynamic profile selection. Key "dynamicProfileSelection" of "/var/wsmDefaults", one for
 * both radios: radioIndex only has to be valid.
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetDynamicProfileSelect
 */
ORUSDK_API uint32_t oruSdkGetDynamicProfileSelect(OruSdkOptionParam *param);

/**
 * Sets the dynamic profile selection, which needs WMM. Takes effect with the next commit. Key
 * "dynamicProfileSelection" of "/var/wsmDefaults", one for both radios: radioIndex only has to be
 * valid. Reads "wmmEnabledFlag" and "TrafficClassifier" first.
 * @param param radioIndex 0 or 1; featureOptions 0 (Tavon), 1 (WMM) or 2 (off)
 * @retval 0   written
 * @retval 2   param is NULL
 * @retval 3   radioIndex is 2 or more
 * @retval 103 featureOptions is 3 or more
 * @retval 42  oruSdkGetWmm() fails, whatever its code
 * @retval 104 WMM is off
 * @retval 7   the file can't be loaded
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetDynamicProfileSelect
 */
ORUSDK_API uint32_t oruSdkSetDynamicProfileSelect(OruSdkOptionParam *param);

/**
 * Reads the channel bonding mode. Key "radio%d.channelBondingMode" of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; featureOptions receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetChannelBondingMode
 */
ORUSDK_API uint32_t oruSdkGetChannelBondingMode(OruSdkOptionParam *param);

/**
 * Sets the channel bonding mode. Takes effect with the next commit. Key
 * "radio%d.channelBondingMode" of "/var/wsmDefaults"; any change, also back to 0, resets
 * "radio%d.broadcastRate24GHz" to 65 and "radio%d.broadcastRate5GHz" to 69 (MCS 0 and 4 at 40 MHz).
 * @param param radioIndex 0 or 1; featureOptions 0 (20 MHz) to 3
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 featureOptions is out of range
 * @retval 7  the file can't be loaded
 * @retval 42 the stored mode is missing or no number
 * @retval 25 a key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetChannelBondingMode
 */
ORUSDK_API uint32_t oruSdkSetChannelBondingMode(OruSdkOptionParam *param);

/* ---- BSS assignment and identity ------------------------------------------------------------ */

/** Switches one radio on or off for a BSS. */
typedef struct OruSdkAssignBssParam {
    int32_t bssIndex;    /**< 0 to 3; a negative number is not refused */
    uint32_t radioIndex; /**< 0 or 1 */
    uint32_t enable;     /**< 0 or 1; receives the new mask, as soon as it is known */
} OruSdkAssignBssParam;

/** Whether the SSID of a BSS is kept out of its beacons. */
typedef struct OruSdkSuppressSsidParam {
    uint32_t bssIndex; /**< 0 to 3 */
    uint32_t suppress; /**< 1 not broadcast, 0 broadcast */
} OruSdkSuppressSsidParam;

/**
 * Switches one radio on or off for a BSS. Takes effect with the next commit.
 * Key "bss%d.radioctrl" of "/var/1x.conf", saved first, and "bss%d.radio" of "/var/wsmDefaults",
 * which also gives the present mask: bit 0 is radio 0, bit 1 radio 1. A change keeps the low 16
 * bits. When the radio is in the requested state already, nothing is written and a line is logged.
 * A 7 for the second file and a 42 leave a dictionary in memory, on purpose.
 * @param param bssIndex up to 3, a negative one forms its keys with the sign; radioIndex 0 or 1,
 *              any other one writes the mask back as it is; enable 0 or 1, which receives the new
 *              mask when that is to be written
 * @retval 0   written, or in the requested state already
 * @retval 2   param is NULL
 * @retval 115 bssIndex is above 3
 * @retval 7   a file can't be loaded ("/var/wsmDefaults" is the first)
 * @retval 42  the mask is missing or no number
 * @retval 38  enable is neither 0 nor 1
 * @retval 25  a key can't be written
 * @retval 8   a file can't be saved
 * @see oruSdkGetAssignBssReq
 */
ORUSDK_API uint32_t oruSdkAssignBss(OruSdkAssignBssParam *param);

/**
 * Reads the radios that a BSS runs on.
 * Key "bss%d.radio" of "/var/wsmDefaults".
 * @param bssIndex up to 3; a negative one forms its key with the sign
 * @param mask receives the stored number as it is: bit 0 is radio 0, bit 1 radio 1
 * @retval 0   read
 * @retval 115 bssIndex is above 3
 * @retval 2   mask is NULL
 * @retval 7   the file can't be loaded
 * @retval 42  the key is missing or no number
 * @see oruSdkAssignBss
 */
ORUSDK_API uint32_t oruSdkGetAssignBssReq(int32_t bssIndex, uint32_t *mask);

/**
 * Sets the SSID of a BSS. Takes effect with the next commit.
 * Key "bss%d.ssId" of "/var/wsmDefaults", saved first, and of "/var/1x.conf". A "bss%d.wpsstate" of
 * 1 in "/var/wsmDefaults" becomes 2. The codes 2 and 115 leave a dictionary in memory, on purpose.
 * @param bssIndex up to 3; a negative one forms its keys with the sign
 * @param ssid any bytes; only the first 32 are read and count; may be empty
 * @retval 0   written
 * @retval 7   "/var/wsmDefaults" can't be loaded; once the SSID stands in it, the same of
 *             "/var/1x.conf"
 * @retval 25  the WPS state can't be written; after 115, the SSID
 * @retval 2   ssid is NULL
 * @retval 115 bssIndex is above 3
 * @retval 8   a file can't be saved
 * @see oruSdkGetSsid
 */
ORUSDK_API uint32_t oruSdkSetSsid(int32_t bssIndex, const char *ssid);

/**
 * Reads the SSID of a BSS.
 * Key "bss%d.ssId" of "/var/wsmDefaults".
 * @param bssIndex up to 3; a negative one forms its key with the sign
 * @param ssid 33 bytes that receive the SSID and a NUL
 * @param length receives the number of bytes, 0 to 32
 * @retval 0   read
 * @retval 2   ssid or length is NULL
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 42  the key is missing or damaged
 * @retval 23  the stored SSID has more than 32 characters
 * @see oruSdkSetSsid
 */
ORUSDK_API uint32_t oruSdkGetSsid(int32_t bssIndex, char ssid[33], uint32_t *length);

/**
 * Sets whether the SSID of a BSS is kept out of its beacons. Takes effect with the next commit.
 * Key "bss%d.suppressSSIDFlag" of "/var/wsmDefaults".
 * @param param bssIndex 0 to 3; suppress 0 or 1
 * @retval 0   written
 * @retval 2   param is NULL
 * @retval 115 bssIndex is 4 or more
 * @retval 47  suppress is neither 0 nor 1
 * @retval 7   the file can't be loaded
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetSuppressSsid
 */
ORUSDK_API uint32_t oruSdkSetSuppressSsid(OruSdkSuppressSsidParam *param);

/**
 * Reads whether the SSID of a BSS is kept out of its beacons.
 * Key "bss%d.suppressSSIDFlag" of "/var/wsmDefaults".
 * @param param bssIndex 0 to 3; suppress receives the stored number as it is
 * @retval 0   read
 * @retval 2   param is NULL
 * @retval 115 bssIndex is 4 or more
 * @retval 7   the file can't be loaded
 * @retval 42  the key is missing or no number
 * @see oruSdkSetSuppressSsid
 */
ORUSDK_API uint32_t oruSdkGetSuppressSsid(OruSdkSuppressSsidParam *param);

/**
 * Sets whether stations of a BSS may talk to each other. Takes effect with the next commit.
 * Key "bss%d.IntraBSS" of "/var/wsmDefaults".
 * @param bssIndex 0 to 3, not checked; a negative one forms its key with the sign
 * @param value any number
 * @retval 0  written
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetIntraBss
 */
ORUSDK_API uint32_t oruSdkSetIntraBss(int32_t bssIndex, int32_t value);

/**
 * Reads whether stations of a BSS may talk to each other.
 * Key "bss%d.IntraBSS" of "/var/wsmDefaults".
 * @param bssIndex 0 to 3, not checked; a negative one forms its key with the sign
 * @param value receives the stored number as it is
 * @retval 0  read
 * @retval 2  value is NULL
 * @retval 7  the file can't be loaded
 * @retval 4294967295 the key is missing or no number: the status of liboruAsf (-1) instead of a
 *            return code, on purpose, as any other non-zero status of it would be. Check the result
 *            against ORUSDK_RC_COUNT.
 * @see oruSdkSetIntraBss
 */
ORUSDK_API uint32_t oruSdkGetIntraBss(int32_t bssIndex, uint32_t *value);

/**
 * Sets whether stations of different BSSes on one radio may talk to each other. Takes effect with
 * the next commit. Key "InterBSS.radio%d" of "/var/wsmDefaults".
 * @param radioIndex 0 or 1, not checked; a negative one forms its key with the sign
 * @param value any number
 * @retval 0  written
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @see oruSdkGetInterBss
 */
ORUSDK_API uint32_t oruSdkSetInterBss(int32_t radioIndex, int32_t value);

/**
 * Reads whether stations of different BSSes on one radio may talk to each other.
 * Key "InterBSS.radio%d" of "/var/wsmDefaults".
 * @param radioIndex 0 or 1, not checked; a negative one forms its key with the sign
 * @param value receives the stored number as it is
 * @retval 0  read
 * @retval 2  value is NULL
 * @retval 7  the file can't be loaded
 * @retval 4294967295 the key is missing or no number: the status of liboruAsf (-1) instead of a
 *            return code, on purpose, as any other non-zero status of it would be. Check the result
 *            against ORUSDK_RC_COUNT.
 * @see oruSdkSetInterBss
 */
ORUSDK_API uint32_t oruSdkGetInterBss(int32_t radioIndex, uint32_t *value);

/**
 * Sets the VLAN of a BSS. Takes effect with the next commit.
 * Key "bss%d.wvid" of "/var/wsmDefaults".
 * @param bssIndex up to 3; a negative one forms its key with the sign
 * @param vlanId 1 to 4095
 * @retval 0   written
 * @retval 115 bssIndex is above 3
 * @retval 117 vlanId is out of range; nothing is logged, and the code speaks of a port, both on
 * purpose
 * @retval 7   the file can't be loaded
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetVlanId
 */
ORUSDK_API uint32_t oruSdkSetVlanId(int32_t bssIndex, uint32_t vlanId);

/**
 * Reads the VLAN of a BSS. The result is the first argument, on purpose.
 * Key "bss%d.wvid" of "/var/wsmDefaults".
 * @param vlanId receives the stored number as it is
 * @param bssIndex 0 to 3
 * @retval 0   read
 * @retval 115 bssIndex is 4 or more
 * @retval 2   vlanId is NULL
 * @retval 7   the file can't be loaded
 * @retval 42  the key is missing or no number
 * @see oruSdkSetVlanId
 */
ORUSDK_API uint32_t oruSdkGetVlanId(uint32_t *vlanId, uint32_t bssIndex);

/**
 * Sets the VLANs of an Ethernet port from a command line. The Ethernet driver is told the port's
 * own VLAN at once; a failure there is only logged. The rest takes effect with the next commit.
 * Keys "eth%d.pvid" and "eth%d.vid%d" of "/var/wsmDefaults". Slots 0 to 14 that are not given
 * become 0; arguments beyond 15 make slots beyond 14, on purpose.
 * @param argc number of arguments
 * @param argv argv[3] the port's number and argv[4] its VLAN, of which the leading digits count (0
 *             without any); argv[5] and on the VLANs of slot 0 and on, stored as they stand. The
 *             arguments before argv[3] are not looked at.
 * @retval 0  written
 * @retval 2  argv, or one of the arguments from argv[3] on, is NULL, or argc is below 5
 * @retval 7  the file can't be loaded
 * @retval 25 a key can't be written; behind "eth%d.pvid", the driver has been told
 * @retval 8  the file can't be saved; the driver has been told by then
 * @see oruSdkGetEtherVlanId
 */
ORUSDK_API uint32_t oruSdkSetEtherVlanId(int32_t argc, char **argv);

/**
 * Reads the VLANs of an Ethernet port.
 * Keys "eth%d.pvid" and "eth%d.vid0" to "eth%d.vid14" of "/var/wsmDefaults".
 * @param vlanIds room for 15 numbers; receives those of the slots that are not 0, without gaps, the
 * low 16 bits of each
 * @param count receives how many
 * @param pvid receives the port's own VLAN
 * @param ethNumber the port's number, not checked; a negative one forms its keys with the sign
 * @retval 0  read
 * @retval 2  vlanIds, count or pvid is NULL
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or no number; pvid and the slots before it are filled, count is not
 * @see oruSdkSetEtherVlanId
 */
ORUSDK_API uint32_t oruSdkGetEtherVlanId(uint16_t *vlanIds, uint32_t *count, uint32_t *pvid,
                                         int32_t ethNumber);

/* ---- Security modes: open and WPA ----------------------------------------------------------- */

/**
 * Switches open access of a BSS on or off. Takes effect with the next commit.
 * Key "bss%d.openAccessEnabled" of "/var/1x.conf". Switching on needs WEP and WPA off and an 802.11
 * mode that is not 802.11n only, and sets "bss%d.BpRSNFlag" of "/var/wsmDefaults", saved first, to
 * 0. Switching off never fails on another mode, and touches none. A 114 leaves two dictionaries in
 * memory, on purpose.
 * @param bssIndex up to 3; a negative one forms its keys with the sign
 * @param enable 0 (off) or 1 (on)
 * @retval 0   written
 * @retval 38  enable is neither 0 nor 1
 * @retval 115 bssIndex is above 3
 * @retval 7   a file can't be loaded ("/var/1x.conf" is the first)
 * @retval 42  on: "dot11Mode" of "/var/wsmDefaults" is missing or no number
 * @retval 114 on: "dot11Mode" is 9, 802.11n only
 * @retval 26  on: "bss%d.wepEnabled" is missing or no boolean; after 46, "bss%d.wpaEnabled"
 * @retval 46  on: WEP is on
 * @retval 45  on: WPA is on
 * @retval 25  a key can't be written
 * @retval 8   a file can't be saved
 * @see oruSdkGetSecModeOpen
 */
ORUSDK_API uint32_t oruSdkSetSecModeOpen(int32_t bssIndex, uint32_t enable);

/**
 * Reads whether open access of a BSS is on.
 * Key "bss%d.openAccessEnabled" of "/var/1x.conf".
 * @param bssIndex up to 3; a negative one forms its key with the sign
 * @param enabled receives 0 or 1
 * @retval 0   read
 * @retval 2   enabled is NULL
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 26  the key is missing or no boolean
 * @see oruSdkSetSecModeOpen
 */
ORUSDK_API uint32_t oruSdkGetSecModeOpen(int32_t bssIndex, uint32_t *enabled);

/**
 * Switches WPA of a BSS on or off. Takes effect with the next commit.
 * Off: "bss%d.wpaEnabled" of "/var/1x.conf" becomes false, "bss%d.BpRSNFlag" and "bss%d.BpPskFlag"
 * of "/var/wsmDefaults" become 0; the types stay stored, and authType and encType are not looked
 * at; each call leaves a dictionary in memory, on purpose.
 * On: needs open access and WEP off. Sets "bss%d.wpaEnabled", "bss%d.wpaAuthTypes",
 * "bss%d.wpaEncTypes" and "bss%d.mixedIeMode" of "/var/1x.conf", and "bss%d.BpRSNFlag" (encType +
 * 1), "bss%d.BpPskFlag" (authType) and "bss%d.wpsstate" (2) of "/var/wsmDefaults".
 * "/var/wsmDefaults" is saved first. Its 29 for a mode that is 802.11n only leaves two dictionaries
 * in memory, on purpose.
 * @param bssIndex up to 3; a negative one forms its keys with the sign
 * @param wpaMode 0 off, 1 WPA, 2 WPA2, 3 both
 * @param authType 0 RADIUS, 1 pre-shared key; a negative number is not refused
 * @param encType 0 AES, 1 or 2 others; only AES when "dot11Mode" is 9, 802.11n only
 * @retval 0   written
 * @retval 30  wpaMode is above 3
 * @retval 115 bssIndex is above 3
 * @retval 7   a file can't be loaded ("/var/1x.conf" is the first)
 * @retval 26  on: "bss%d.openAccessEnabled" is missing or no boolean; after 32, "bss%d.wepEnabled"
 * @retval 32  on: open access is on
 * @retval 46  on: WEP is on
 * @retval 28  on: authType is above 1
 * @retval 29  on: encType is above 2; after 42, it is not 0 while "dot11Mode" is 9
 * @retval 42  on: "dot11Mode" of "/var/wsmDefaults" is missing or no number
 * @retval 25  a key can't be written
 * @retval 8   a file can't be saved
 * @see oruSdkGetSecModeWpa
 */
ORUSDK_API uint32_t oruSdkSetSecModeWpa(int32_t bssIndex, uint32_t wpaMode, int32_t authType,
                                        uint32_t encType);

/**
 * Reads the WPA settings of a BSS.
 * Keys "bss%d.wpaEnabled", "bss%d.mixedIeMode", "bss%d.wpaAuthTypes" and "bss%d.wpaEncTypes" of
 * "/var/1x.conf".
 * @param bssIndex up to 3; a negative one forms its keys with the sign
 * @param wpaMode receives 0 while WPA is off, else the mode; 1 when that can't be read
 * @param authType receives the authentication type; untouched while WPA is off
 * @param encType receives the encryption type; untouched while WPA is off
 * @retval 0   read
 * @retval 2   wpaMode, authType or encType is NULL
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 26  "bss%d.wpaEnabled" is missing or no boolean
 * @retval 42  a type is missing or no number; what was read before it is filled
 * @see oruSdkSetSecModeWpa
 */
ORUSDK_API uint32_t oruSdkGetSecModeWpa(int32_t bssIndex, uint32_t *wpaMode, uint32_t *authType,
                                        uint32_t *encType);

/* ---- WEP ------------------------------------------------------------------------------------ */

/**
 * Switches WEP of a BSS on or off. Takes effect with the next commit.
 * Off: "bss%d.wepEnabled" and "bss%d.dynamicWepEnabled" of "/var/1x.conf" become false; the keys
 * stay stored, and the arguments behind enable are not looked at. On: needs open access and WPA off
 * and an 802.11 mode that is not 802.11n only. Sets "bss%d.BpRSNFlag" of "/var/wsmDefaults", saved
 * first, to 0, and "bss%d.wepEnabled", "bss%d.dynamicWepEnabled", "bss%d.wepKeyLen",
 * "bss%d.wepDefaultKey" and "bss%d.wepKey.1" to "bss%d.wepKey.4" (pairs of digits joined by colons)
 * of "/var/1x.conf". A key that is not given is deleted. Lines that refuse a key show it. A 114
 * leaves a dictionary in memory, on purpose.
 * @param bssIndex up to 3; a negative one forms its keys with the sign
 * @param enable 0 (off) or 1 (on)
 * @param keyLength bytes of a key: 5 or 13, for dynamic WEP, too
 * @param defaultKeyId number of the key to send with, 1 to 4, for dynamic WEP, too
 * @param key1 twice keyLength hexadecimal digits, or NULL; all four NULL: dynamic WEP
 * @param key2 as key1
 * @param key3 as key1
 * @param key4 as key1
 * @retval 0   written
 * @retval 38  enable is neither 0 nor 1
 * @retval 115 bssIndex is above 3
 * @retval 7   on: "/var/wsmDefaults" can't be loaded; after the keys, on or off, "/var/1x.conf"
 * @retval 42  on: "dot11Mode" of "/var/wsmDefaults" is missing or no number
 * @retval 114 on: "dot11Mode" is 9, 802.11n only; nothing is logged, on purpose
 * @retval 34  on: keyLength is neither 5 nor 13
 * @retval 35  on: defaultKeyId is not 1 to 4
 * @retval 37  on: keys are given, but not the default one
 * @retval 39  on: a key has another length (each key: length, then digits)
 * @retval 36  on: a key holds another character than a hexadecimal digit
 * @retval 26  on: "bss%d.openAccessEnabled" is missing or no boolean; after 32, "bss%d.wpaEnabled"
 * @retval 32  on: open access is on
 * @retval 45  on: WPA is on
 * @retval 25  a key can't be written
 * @retval 8   a file can't be saved
 * @see oruSdkGetSecModeWep
 */
ORUSDK_API uint32_t oruSdkSetSecModeWep(int32_t bssIndex, uint32_t enable, int32_t keyLength,
                                        uint32_t defaultKeyId, const char *key1, const char *key2,
                                        const char *key3, const char *key4);

/**
 * Reads the WEP settings of a BSS. Each result is checked against NULL when its turn comes: while
 * WEP is off, all but enabled may be NULL. Keys "bss%d.wepEnabled", "bss%d.wepKeyLen",
 * "bss%d.wepDefaultKey" and "bss%d.wepKey.1" to "bss%d.wepKey.4" of "/var/1x.conf".
 * @param bssIndex up to 3; a negative one forms its keys with the sign
 * @param enabled receives 0 or 1; while 0, the others are untouched
 * @param keyLength receives the bytes of a key
 * @param defaultKeyId receives the number of the key to send with
 * @param key1 27 bytes that receive up to 26 digits and a NUL; empty when there is no such key
 * @param key2 as key1
 * @param key3 as key1
 * @param key4 as key1
 * @retval 0   read
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 26  "bss%d.wepEnabled" is missing or no boolean; on: "bss%d.wepKeyLen" or
 *             "bss%d.wepDefaultKey" is missing or no number, each after the check of its result
 * @retval 2   enabled is NULL; on: keyLength, then defaultKeyId, then a key's room is NULL; the
 *             results before it are filled
 * @see oruSdkSetSecModeWep
 */
ORUSDK_API uint32_t oruSdkGetSecModeWep(int32_t bssIndex, uint32_t *enabled, uint32_t *keyLength,
                                        uint32_t *defaultKeyId, char *key1, char *key2, char *key3,
                                        char *key4);

/**
 * Whether a text holds hexadecimal digits only, of either case. Logs nothing.
 * @param text NUL-terminated, or NULL
 * @retval 1 it does, or is empty
 * @retval 0 it holds another character, or text is NULL
 */
ORUSDK_API uint32_t isHex(const char *text);

/* ---- WPA pre-shared key and pass-phrase ----------------------------------------------------- */

/**
 * Sets the pre-shared key of a BSS in WPA mode. Takes effect with the next commit.
 * Key "bss%d.wpaPsk" of "/var/1x.conf"; reads "bss%d.wpaEnabled". A refused key appears in the log
 * line.
 * @param bssIndex 0 to 3; a negative number is not refused and forms its keys with the sign
 * @param psk      64 hexadecimal digits (the key itself), or 8 to 63 characters in 32 to 126 (a
 *                 pass-phrase); NULL removes the key from what is loaded, checks that it can be
 *                 removed, and leaves the file as it is, on purpose
 * @retval 0   written; with NULL: nothing written
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 26  "bss%d.wpaEnabled" can't be read
 * @retval 33  WPA is off
 * @retval 31  64 characters of which one is no hexadecimal digit, or any other length outside 8 to
 *             63; this refusal and the next leave a handle in memory, on purpose
 * @retval 41  a character of the pass-phrase is outside 32 to 126
 * @retval 25  the key can't be written, or not removed
 * @retval 8   the file can't be saved
 * @see oruSdkGetWpaPsk
 */
ORUSDK_API uint32_t oruSdkSetWpaPsk(int32_t bssIndex, const char *psk);

/**
 * Reads the pre-shared key of a BSS, whether WPA is on or off.
 * Key "bss%d.wpaPsk" of "/var/1x.conf".
 * @param bssIndex 0 to 3; a negative number is not refused and forms its key with the sign
 * @param psk      room for 65 characters; receives up to 64 and a terminator
 * @param length   receives the length as it is stored
 * @retval 0   read
 * @retval 2   psk or length is NULL
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 72  no key is stored, or a damaged one
 * @see oruSdkSetWpaPsk
 */
ORUSDK_API uint32_t oruSdkGetWpaPsk(int32_t bssIndex, char *psk, uint32_t *length);

/* ---- Security timeouts and MAC authentication ----------------------------------------------- */

/** Security timeouts of a BSS. */
typedef struct OruSdkSecTimeoutsParam {
    int32_t sessionTimeout;  /**< seconds: 0 (none), or 30 and more */
    int32_t groupKeyTimeout; /**< seconds between two group keys: 30 and more; anything when
                                sessionTimeout is 0 */
} OruSdkSecTimeoutsParam;

/** Static-WEP authentication type of a BSS at the MAC layer. */
typedef struct OruSdkMacAuthParam {
    int32_t bssIndex;    /**< 0 to 3; a negative number forms its key with the sign */
    uint32_t radioIndex; /**< any; appears in log lines alone */
    uint32_t authType;   /**< 0 to 2; a getter gives what is stored, unchecked */
} OruSdkMacAuthParam;

/**
 * Sets the security timeouts of a BSS. Takes effect with the next commit.
 * Keys "bss%d.sessionTimeout" and "bss%d.groupKeyTimeout" of "/var/1x.conf".
 * @param param    sessionTimeout 0, or 30 and more; groupKeyTimeout 30 and more, or anything with a
 *                 sessionTimeout of 0
 * @param bssIndex 0 to 3
 * @retval 0   written
 * @retval 2   param is NULL
 * @retval 115 bssIndex is above 3
 * @retval 43  sessionTimeout is below 30 and not 0
 * @retval 44  groupKeyTimeout is below 30 and sessionTimeout is not 0
 * @retval 7   the file can't be loaded
 * @retval 25  a key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetSecTimeouts
 */
ORUSDK_API uint32_t oruSdkSetSecTimeouts(const OruSdkSecTimeoutsParam *param, uint8_t bssIndex);

/**
 * Reads the security timeouts of a BSS.
 * Keys "bss%d.sessionTimeout" and "bss%d.groupKeyTimeout" of "/var/1x.conf".
 * @param param    receives both as they are stored
 * @param bssIndex 0 to 3
 * @retval 0   read
 * @retval 2   param is NULL
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 42  a key is missing or no number
 * @see oruSdkSetSecTimeouts
 */
ORUSDK_API uint32_t oruSdkGetSecTimeouts(OruSdkSecTimeoutsParam *param, uint8_t bssIndex);

/**
 * Sets the static-WEP authentication type of a BSS. Takes effect with the next commit.
 * Key "bss%d.macAuthType" of "/var/1x.conf".
 * @param param bssIndex 0 to 3; authType 0 to 2
 * @retval 0   written
 * @retval 2   param is NULL
 * @retval 115 bssIndex is above 3
 * @retval 47  authType is above 2
 * @retval 7   the file can't be loaded
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetMacAuth
 */
ORUSDK_API uint32_t oruSdkSetMacAuth(const OruSdkMacAuthParam *param);

/**
 * Reads the static-WEP authentication type of a BSS.
 * Key "bss%d.macAuthType" of "/var/1x.conf".
 * @param param bssIndex 0 to 3; authType receives the stored number as it is
 * @retval 0   read
 * @retval 2   param is NULL
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 42  the key is missing or no number
 * @see oruSdkSetMacAuth
 */
ORUSDK_API uint32_t oruSdkGetMacAuth(OruSdkMacAuthParam *param);

/* ---- RADIUS servers ------------------------------------------------------------------------- */

/** One RADIUS server. */
typedef struct OruSdkRadiusServer {
    char name[65];   /**< name or address: up to 63 characters; a getter gives up to 64 */
    uint32_t port;   /**< UDP port, unchecked */
    char secret[66]; /**< shared secret: 1 to 65 characters */
} OruSdkRadiusServer;

/**
 * Sets the RADIUS servers of the access point. Takes effect with the next commit.
 * Keys "radiusTimeout", "radiusMaxTries", "numRadiusServers", "radiusServer.%d", "radiusPort.%d"
 * and "radiusSecret.%d" (1 to 3) of "/var/1x.conf". Servers beyond numServers stay stored.
 * @param timeout    seconds to wait for an answer, 0 or more
 * @param maxTries   attempts; timeout x maxTries is below 20 (a product of 32 bits, wrapping)
 * @param deadTime   ignored
 * @param numServers 1 to 3
 * @param servers    numServers entries
 * @retval 0  written
 * @retval 82 timeout is negative
 * @retval 87 timeout x maxTries is 20 or more
 * @retval 84 numServers is not 1 to 3
 * @retval 2  servers is NULL
 * @retval 7  the file can't be loaded
 * @retval 25 a key can't be written; nothing is saved. Servers are checked and written one by one:
 *            a key that can't be written comes before the checks of what is behind it
 * @retval 85 a name has more than 63 characters; nothing is saved
 * @retval 86 a secret has none or more than 65 characters; nothing is saved
 * @retval 8  the file can't be saved
 * @see oruSdkGetRadiusConf
 */
ORUSDK_API uint32_t oruSdkSetRadiusConf(int32_t timeout, int32_t maxTries, int32_t deadTime,
                                        int32_t numServers, const OruSdkRadiusServer *servers);

/**
 * Reads the RADIUS servers of the access point. The keys are those of oruSdkSetRadiusConf().
 * @param timeout    receives seconds
 * @param maxTries   receives attempts
 * @param deadTime   receives 0xdeadbeef: not supported
 * @param numServers receives the count, as it is stored
 * @param servers    three entries, all filled with what is stored, whatever the count; what the
 *                   file lacks is left as it is
 * @retval 0  read
 * @retval 2  a pointer is NULL
 * @retval 7  the file can't be loaded
 * @retval 81 "radiusTimeout" is missing or no number: no servers are configured
 * @retval 26 "radiusMaxTries" or "numRadiusServers" can't be read
 * @see oruSdkSetRadiusConf
 */
ORUSDK_API uint32_t oruSdkGetRadiusConf(uint32_t *timeout, uint32_t *maxTries, uint32_t *deadTime,
                                        uint32_t *numServers, OruSdkRadiusServer *servers);

/* ---- MAC access-control list ---------------------------------------------------------------- */

/**
 * Sets the list of station addresses that all BSSes share, and how AA applies it. Takes effect with
 * the next commit. Keys "localMacAcl", "localMacAclCount" and "localMacAcl.%d" (1 to 256) of
 * "/var/1x.conf"; entries of an earlier list are removed.
 * @param mode    0 no list (count and entries are then not looked at), 1 or 2 the two ways of AA
 * @param count   entries, 0 to 256; a negative number is not refused and stores none
 * @param entries count fields of 18 bytes, one behind the other: 17 characters and a terminator,
 *                such as "00:11:22:aa:bb:cc", unchecked
 * @retval 0  written
 * @retval 2  mode is NULL; after 25, mode is 1 or 2 and count or entries is NULL: nothing is saved
 * @retval 90 mode is above 2
 * @retval 7  the file can't be loaded
 * @retval 25 "localMacAcl" can't be written; after 89, "localMacAclCount" or an entry
 * @retval 89 count is above 256; nothing is saved
 * @retval 8  the file can't be saved
 * @see oruSdkGetMacAclList
 */
ORUSDK_API uint32_t oruSdkSetMacAclList(const uint32_t *mode, const int32_t *count,
                                        const char *entries);

/**
 * Reads the list of station addresses. The keys are those of oruSdkSetMacAclList().
 * @param mode    receives the mode as it is stored
 * @param count   receives the stored count when the mode is 1 or 2
 * @param entries room for 256 fields of 18 bytes; receives the stored entries one behind the other:
 *                an absent one takes no field
 * @retval 0  read
 * @retval 2  a pointer is NULL
 * @retval 7  the file can't be loaded
 * @retval 26 mode or count can't be read
 * @retval 89 the stored count is above 256; leaves a handle in memory, on purpose
 * @retval 91 an entry can't be read; those before it are filled
 * @see oruSdkSetMacAclList
 */
ORUSDK_API uint32_t oruSdkGetMacAclList(uint32_t *mode, int32_t *count, char *entries);

/* ---- WPS configuration ---------------------------------------------------------------------- */

/** Registrar setting of a BSS. */
typedef struct OruSdkRegistrarParam {
    int32_t bssIndex;       /**< 0 to 3; a negative number forms its key with the sign */
    uint32_t radioIndex;    /**< 0 or 1; checked, and not used further */
    uint32_t registrarInfo; /**< 0 to 3, passed to the services unchanged */
} OruSdkRegistrarParam;

/** The SSID and BSSID that a client bridge is to join. */
typedef struct OruSdkClientAdminCritParam {
    uint32_t radioIndex; /**< 0 or 1; checked, and not used further */
    char *ssid;          /**< setter: up to 32 characters, or NULL for none; getter: room for 33 */
    char *bssid; /**< setter: 17 characters, such as "00:11:22:aa:bb:cc", or NULL for none; getter:
                    room for 18 */
} OruSdkClientAdminCritParam;

/**
 * Reads the registrar setting of a BSS.
 * Key "bss%d.registrarinfo" of "/var/wsmDefaults".
 * @param bssIndex 0 to 3; a negative number is not refused and forms its key with the sign
 * @param registrarInfo receives the stored number as it is
 * @retval 0   read
 * @retval 115 bssIndex is above 3
 * @retval 2   registrarInfo is NULL
 * @retval 7   the file can't be loaded
 * @retval 109 the key is missing or no number: the feature is off
 * @see oruSdkSetRegistrarInfo
 */
ORUSDK_API uint32_t oruSdkGetRegistrarInfo(int32_t bssIndex, uint32_t *registrarInfo);

/**
 * Sets the registrar setting of a BSS. Takes effect with the next commit.
 * Key "bss%d.registrarinfo" of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; bssIndex 0 to 3; registrarInfo 0 to 3
 * @retval 0   written
 * @retval 2   param is NULL
 * @retval 3   radioIndex is 2 or more
 * @retval 115 bssIndex is above 3
 * @retval 110 registrarInfo is above 3
 * @retval 7   the file can't be loaded
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetRegistrarInfo
 */
ORUSDK_API uint32_t oruSdkSetRegistrarInfo(OruSdkRegistrarParam *param);

/**
 * Reads whether a BSS enforces the PIN timeout.
 * Key "bss%d.enforcepintimeout" of "/var/wsmDefaults".
 * @param bssIndex 0 to 3; a negative number is not refused and forms its key with the sign
 * @param enforce receives the stored number as it is
 * @retval 0   read
 * @retval 115 bssIndex is above 3
 * @retval 2   enforce is NULL
 * @retval 7   the file can't be loaded
 * @retval 42  the key is missing or no number
 * @see oruSdkSetApEnforcePinTimeout
 */
ORUSDK_API uint32_t oruSdkGetApEnforcePinTimeout(int32_t bssIndex, uint32_t *enforce);

/**
 * Sets whether a BSS enforces the PIN timeout. Takes effect with the next commit.
 * Key "bss%d.enforcepintimeout" of "/var/wsmDefaults".
 * @param bssIndex 0 to 3; a negative number is not refused and forms its key with the sign
 * @param enforce 0 or 1
 * @retval 0   written
 * @retval 40  enforce is above 1
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetApEnforcePinTimeout
 */
ORUSDK_API uint32_t oruSdkSetApEnforcePinTimeout(int32_t bssIndex, uint32_t enforce);

/**
 * Reads the WPS state of a BSS.
 * Key "bss%d.wpsstate" of "/var/wsmDefaults". A 109 is not logged.
 * @param bssIndex 0 to 3; a negative number is not refused and forms its key with the sign
 * @param state receives the stored number as it is
 * @retval 0   read
 * @retval 115 bssIndex is above 3
 * @retval 2   state is NULL
 * @retval 7   the file can't be loaded
 * @retval 109 the key is missing or no number: the feature is off
 * @see oruSdkSetWscState
 */
ORUSDK_API uint32_t oruSdkGetWscState(int32_t bssIndex, uint32_t *state);

/**
 * Sets the WPS state of a BSS. Takes effect with the next commit.
 * Key "bss%d.wpsstate" of "/var/wsmDefaults".
 * @param bssIndex 0 to 3; a negative number is not refused and forms its key with the sign
 * @param state 1 or 2, passed to the services unchanged
 * @retval 0   written
 * @retval 40  state is neither 1 nor 2
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetWscState
 */
ORUSDK_API uint32_t oruSdkSetWscState(int32_t bssIndex, uint32_t state);

/**
 * Reads whether WPS is on for a BSS.
 * Key "bss%d.wscEnabledFlag" of "/var/1x.conf". A 109 is not logged.
 * @param bssIndex 0 to 3; a negative number is not refused and forms its key with the sign
 * @param enabled receives the stored number as it is
 * @retval 0   read
 * @retval 115 bssIndex is above 3
 * @retval 2   enabled is NULL
 * @retval 7   the file can't be loaded
 * @retval 109 the key is missing or no number: the feature is off
 * @see oruSdkSetWsc
 */
ORUSDK_API uint32_t oruSdkGetWsc(int32_t bssIndex, uint32_t *enabled);

/**
 * Sets whether WPS is on for a BSS. Takes effect with the next commit.
 * Key "bss%d.wscEnabledFlag" of "/var/1x.conf".
 * @param bssIndex 0 to 3; a negative number is not refused and forms its key with the sign
 * @param enabled 0 (off) or 1 (on)
 * @retval 0   written
 * @retval 40  enabled is above 1
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetWsc
 */
ORUSDK_API uint32_t oruSdkSetWsc(int32_t bssIndex, uint32_t enabled);

/**
 * Reads the UUID of a BSS.
 * Key "bss%d.uuid" of "/var/wsmDefaults".
 * @param bssIndex 0 to 3; a negative number is not refused and forms its key with the sign
 * @param uuid     room for 33 characters; receives the stored text and a terminator
 * @param length   receives the length of the text
 * @retval 0   read
 * @retval 2   uuid or length is NULL
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 42  the key is missing or damaged
 * @retval 108 the stored text has more than 32 characters
 * @see oruSdkSetUuid
 */
ORUSDK_API uint32_t oruSdkGetUuid(int32_t bssIndex, char *uuid, uint32_t *length);

/**
 * Sets the UUID of a BSS. Takes effect with the next commit.
 * Key "bss%d.uuid" of "/var/wsmDefaults".
 * @param bssIndex 0 to 3; a negative number is not refused and forms its key with the sign
 * @param uuid     32 hexadecimal digits, stored as given
 * @retval 0   written
 * @retval 2   uuid is NULL
 * @retval 115 bssIndex is above 3
 * @retval 111 uuid is not 32 characters long, or one of them is no hexadecimal digit
 * @retval 7   the file can't be loaded
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetUuid
 */
ORUSDK_API uint32_t oruSdkSetUuid(int32_t bssIndex, const char *uuid);

/**
 * Reads the interface on which WPS runs for a BSS.
 * Key "bss%d.wpsintf" of "/var/wsmDefaults".
 * @param bssIndex  0 to 3; a negative number is not refused and forms its key with the sign
 * @param interface room for 10 characters; receives the stored name and a terminator
 * @param length    receives the length of the name
 * @retval 0   read
 * @retval 2   interface or length is NULL
 * @retval 115 bssIndex is above 3
 * @retval 7   the file can't be loaded
 * @retval 109 the key is missing or damaged: the feature is off
 * @retval 1   the stored name has more than 9 characters
 * @see oruSdkSetWpsIntf
 */
ORUSDK_API uint32_t oruSdkGetWpsIntf(int32_t bssIndex, char *interface, uint32_t *length);

/**
 * Sets the interface on which WPS runs for a BSS. Takes effect with the next commit.
 * Key "bss%d.wpsintf" of "/var/wsmDefaults".
 * @param bssIndex  0 to 3; a negative number is not refused and forms its key with the sign
 * @param interface any text, of which the first 9 characters are stored
 * @retval 0   written
 * @retval 115 bssIndex is above 3
 * @retval 2   interface is NULL
 * @retval 7   the file can't be loaded
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetWpsIntf
 */
ORUSDK_API uint32_t oruSdkSetWpsIntf(int32_t bssIndex, const char *interface);

/**
 * Reads which SSID and BSSID a client bridge is to join.
 * Keys "wdsRulesSsId" and "bssId" of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; ssid and bssid receive the stored texts, cut to 32 and 17
 *              characters, with a terminator
 * @retval 0  read
 * @retval 2  param is NULL; after 3, ssid or bssid is
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 a key is missing or damaged
 * @see oruSdkSetClientAdminCrit
 */
ORUSDK_API uint32_t oruSdkGetClientAdminCrit(OruSdkClientAdminCritParam *param);

/**
 * Sets which SSID and BSSID a client bridge is to join. Takes effect with the next commit.
 * Keys "wdsRulesSsId", "bssNum" and "bssId" of "/var/wsmDefaults" and "ssid" of "/var/1x.conf".
 * Without an SSID an empty one is stored, without a BSSID the count 0 and an address of zeros.
 * "/var/wsmDefaults" is saved first, and stays so when the other file can't be saved.
 * @param param radioIndex 0 or 1; ssid up to 32 characters or NULL; bssid 17 characters, unchecked,
 *              or NULL
 * @retval 0  written
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 79 ssid has more than 32 characters
 * @retval 78 bssid has not exactly 17 characters
 * @retval 7  a file can't be loaded
 * @retval 25 a key can't be written; nothing is saved
 * @retval 8  a file can't be saved
 * @see oruSdkGetClientAdminCrit
 */
ORUSDK_API uint32_t oruSdkSetClientAdminCrit(OruSdkClientAdminCritParam *param);

/* ---- WPS device PIN and password ------------------------------------------------------------ */

/**
 * Gives WSM the access point's own WPS PIN, at once, and stores it. The PIN's form is WSM's to
 * judge; its verdict is only logged, and the PIN is stored whatever it says. No answer within 20 s
 * is no failure. Key "bss%d.appinpasswd" of "/var/wsmDefaults". A 3 is not logged.
 * @param radioIndex 0 or 1 (the low 16 bits count)
 * @param bssIndex   0 to 3 (the low 16 bits count)
 * @param pin        the PIN, NUL-terminated, at most 1900 characters
 * @retval 0   given and stored
 * @retval 3   radioIndex is 2 or more
 * @retval 115 bssIndex is 4 or more
 * @retval 2   pin is NULL
 * @retval 48  WSM can't be reached, its reply is not as expected, or the PIN is too long for a
 * message
 * @retval 7   the file can't be loaded
 * @retval 25  the key can't be written
 * @retval 8   the file can't be saved
 * @see oruSdkGetDevicePin
 */
ORUSDK_API uint32_t oruSdkSetDevicePin(uint32_t radioIndex, uint32_t bssIndex, const char *pin);

/**
 * Reads the stored WPS PIN of the access point.
 * Key "bss%d.appinpasswd" of "/var/wsmDefaults".
 * @param bssIndex 0 to 3; a negative number is not refused and forms its key with the sign
 * @param pin      receives the PIN, NUL-terminated: room for 65 characters
 * @param length   receives its length
 * @retval 0   read
 * @retval 2   pin or length is NULL
 * @retval 115 bssIndex is 4 or more
 * @retval 7   the file can't be loaded
 * @retval 42  the key is missing or damaged
 * @retval 108 the stored PIN has 65 characters or more
 * @see oruSdkSetDevicePin
 */
ORUSDK_API uint32_t oruSdkGetDevicePin(int32_t bssIndex, char *pin, uint32_t *length);

/**
 * Asks WSM to generate a new password of the access point, at once. Nothing is stored here. No
 * answer within 20 s is no failure. A 3 is not logged.
 * @param radioIndex 0 or 1 (the low 16 bits count)
 * @param bssIndex   0 to 3 (the low 16 bits count)
 * @retval 0   asked
 * @retval 3   radioIndex is 2 or more
 * @retval 115 bssIndex is 4 or more
 * @retval 48  WSM can't be reached, or its reply can't be received
 * @retval 119 the reply is not as expected
 */
ORUSDK_API uint32_t oruSdkGenPassword(uint32_t radioIndex, uint32_t bssIndex);

/* ---- WPS enrollment and status -------------------------------------------------------------- */

/**
 * Starts a WPS enrollment, at once. WSM's verdict is only logged: ask oruSdkGetWscStatus(). No
 * answer within 20 s is no failure. Refused unless "bss%d.wscEnabledFlag" of "/var/1x.conf" is on.
 * A 3 is not logged. Neither is a method that is not known.
 * @param method     0 by the station's PIN, 1 push button, 2 the access point as enrollee by its
 * PIN
 * @param radioIndex 0 or 1 (the low 16 bits count)
 * @param bssIndex   0 to 3 (the low 16 bits count)
 * @param pin        the station's PIN for method 0, at most 1900 characters; not NULL for the
 * others
 * @retval 0   asked
 * @retval 3   radioIndex is 2 or more
 * @retval 115 bssIndex is 4 or more
 * @retval 2   pin is NULL
 * @retval 7   the file can't be loaded
 * @retval 109 WPS is off, or its flag missing or no number
 * @retval 48  WSM can't be reached, the method is not known, or the PIN is too long for a message
 * @retval 119 the reply is not as expected
 * @see oruSdkGetWscStatus, oruSdkSetWsc
 */
ORUSDK_API uint32_t sendWscEnroll(uint32_t method, uint32_t radioIndex, uint32_t bssIndex,
                                  const char *pin);

/**
 * Asks WSM for the result code of the last enrollment.
 * @param radioIndex sent as it is (the low 16 bits)
 * @param bssIndex   sent as it is (the low 16 bits)
 * @param result     receives the result code, also before a 119; untouched when no answer comes
 * within 20 s
 * @retval 0   asked
 * @retval 2   result is NULL
 * @retval 48  WSM can't be reached, or its reply can't be received
 * @retval 119 the reply is not as expected
 * @see sendWscEnroll
 */
ORUSDK_API uint32_t oruSdkGetWscStatus(uint32_t radioIndex, uint32_t bssIndex, uint32_t *result);

/* ---- Statistics ----------------------------------------------------------------------------- */

/** Statistics of a radio. */
typedef struct OruSdkRadioStatsParam {
    uint8_t selector1;    /**< sent to WSM as it is */
    uint8_t selector2;    /**< sent to WSM as it is */
    char statsStr[19998]; /**< the text: counter names, each followed by its value */
} OruSdkRadioStatsParam;

/** Statistics of a station. */
typedef struct OruSdkStaStatsParam {
    uint8_t selector1;    /**< sent to WSM as it is */
    uint8_t selector2;    /**< sent to WSM as it is */
    uint8_t macAddr[6];   /**< the station, in transmission order */
    char statsStr[19998]; /**< the text: counter names, each followed by its value */
} OruSdkStaStatsParam;

/**
 * Asks WSM for the counters of a radio.
 * @param param the selectors; statsStr receives the text, also when WSM reports a failure, and
 * stays as it is when no answer comes within 20 s
 * @retval 0  asked
 * @retval 2  param is NULL
 * @retval 48 WSM can't be reached, or its reply can't be received
 * @retval 1  WSM reports a failure
 * @see oruSdkGetStatsValue
 */
ORUSDK_API uint32_t oruSdkGetRadioStats(OruSdkRadioStatsParam *param);

/**
 * Asks WSM for the counters of a station.
 * @param param the selectors and the station; statsStr as for oruSdkGetRadioStats()
 * @retval 0  asked
 * @retval 2  param is NULL
 * @retval 48 WSM can't be reached, or its reply can't be received
 * @retval 1  WSM reports a failure
 * @see oruSdkGetStatsValue
 */
ORUSDK_API uint32_t oruSdkGetStaStats(OruSdkStaStatsParam *param);

/**
 * Picks a counter out of a statistics text. Only the first occurrence of the name counts: inside a
 * longer word that begins with it, it is not found; at the end of a longer word, it is.
 * @param name the counter
 * @param text a statistics text
 * @return its value, or the nearest number of 32 bits, signed; -1 when it is not found or has no
 * number, when name is empty, or when an argument is NULL
 * @see oruSdkGetRadioStats, oruSdkGetStaStats
 */
ORUSDK_API int32_t oruSdkGetStatsValue(const char *name, const char *text);

/* ---- Live tables ---------------------------------------------------------------------------- */

/*
 * Numbers of WSM in these records are byte arrays, most significant byte first, on every host.
 * Texts are NUL-terminated; longer ones are cut. What the numbers mean is WSM's business.
 */

/** A BSS of a radio, 96 bytes. */
typedef struct OruSdkBssEntry {
    uint8_t element17[4];  /**< a number */
    char ssid[33];         /**< not filled by oruSdkGetRadioParam() */
    uint8_t reserved1[40]; /**< neither read nor written */
    char bssid[18];        /**< six two-digit hexadecimal groups joined by colons */
    uint8_t reserved2;     /**< neither read nor written */
} OruSdkBssEntry;

/** The BSSes of one radio. */
typedef struct OruSdkBssListParam {
    OruSdkBssEntry bss[4]; /**< the first numBss are filled */
    uint16_t radioIndex;   /**< in: sent to WSM as it is */
    uint8_t element1[2];   /**< a number */
    uint32_t numBss;       /**< entries, in host order */
    uint8_t element18[2];  /**< a number */
} OruSdkBssListParam;

/** A neighbouring network, 55 bytes. */
typedef struct OruSdkScanEntry {
    char bssid[18];      /**< six two-digit hexadecimal groups joined by colons */
    char ssid[33];       /**< its SSID */
    uint8_t reserved[4]; /**< neither read nor written */
} OruSdkScanEntry;

/** Entries that a reply can carry at most. */
#define ORUSDK_SCAN_ENTRIES 1111

/** The networks that the radios hear. */
typedef struct OruSdkScanlistParam {
    uint8_t numEntries[4];                        /**< entries that are filled */
    uint8_t reserved[4];                          /**< neither read nor written */
    OruSdkScanEntry entries[ORUSDK_SCAN_ENTRIES]; /**< in the order of the reply */
} OruSdkScanlistParam;

/** A station, 22 bytes. */
typedef struct OruSdkStationEntry {
    uint8_t staId[4]; /**< WSM's identifier of the station, 16 bits */
    char macAddr[18]; /**< six two-digit hexadecimal groups joined by colons */
} OruSdkStationEntry;

/** The stations of one BSS. */
typedef struct OruSdkStationParam {
    OruSdkStationEntry stations[256]; /**< in the order of the reply */
    uint8_t numStations[4];           /**< entries that are filled */
    uint8_t bssIndex[2];              /**< in: 0 to 3 */
    uint8_t radioIndex[2];            /**< in: 0 or 1 */
} OruSdkStationParam;

/** A radio, 460 bytes. The fields are named after the elements of the reply that fill them. */
typedef struct OruSdkRadioEntry {
    uint8_t element1[4];   /**< WSM's identifier of the radio, 16 bits */
    char element2[17];     /**< a text */
    uint8_t element3[4];   /**< a number */
    uint8_t element8[4];   /**< a number */
    uint8_t element4[4];   /**< a number */
    uint8_t element277[4]; /**< a number */
    uint8_t reserved[33];  /**< neither read nor written */
    uint8_t element6[4];   /**< a number */
    uint8_t element18[2];  /**< a number, 16 bits */
    OruSdkBssEntry bss[4]; /**< its BSSes, without their SSIDs */
} OruSdkRadioEntry;

/** The radios. */
typedef struct OruSdkRadioParam {
    OruSdkRadioEntry radios[2]; /**< in the order of the reply */
    uint8_t numRadios[4];       /**< entries that are filled */
} OruSdkRadioParam;

/**
 * Asks WSM for the BSSes of a radio. An element of the reply that does not fit (48) is not logged.
 * @param param radioIndex; the entries receive what WSM says, numBss their number: 0 when no answer
 *              comes within 20 s. After a failure numBss is as it was.
 * @retval 0  asked
 * @retval 2  param is NULL
 * @retval 48 WSM can't be reached, or its reply is not as expected (more than 4 BSSes among it)
 */
ORUSDK_API uint32_t oruSdkGetBssListParam(OruSdkBssListParam *param);

/**
 * Asks WSM for the networks that the radios hear. An element of the reply that does not fit (48) is
 * not logged.
 * @param param receives the entries, numEntries their number: 0 when no answer comes within 20 s.
 * It stays as it was after a failure, and when the last entry lacks its SSID.
 * @retval 0  asked
 * @retval 2  param is NULL
 * @retval 48 WSM can't be reached, or its reply is not as expected
 */
ORUSDK_API uint32_t oruSdkGetScanlistParam(OruSdkScanlistParam *param);

/**
 * Asks WSM for the stations of a BSS. A 3 is not logged. An element of the reply that does not fit
 * (48) is not logged.
 * @param param bssIndex and radioIndex; receives the stations, numStations their number: 0 when no
 *              answer comes within 20 s. After a failure it is as it was.
 * @retval 0   asked
 * @retval 2   param is NULL
 * @retval 3   radioIndex is 2 or more
 * @retval 115 bssIndex is 4 or more
 * @retval 48  WSM can't be reached, or its reply is not as expected (more than 256 stations among
 *             it)
 */
ORUSDK_API uint32_t oruSdkGetStationParam(OruSdkStationParam *param);

/**
 * Asks WSM for the radios and their BSSes. An element of the reply that does not fit (48) is not
 * logged.
 * @param param receives the radios, numRadios their number: 0 when no answer comes within 20 s.
 * After a failure it is as it was.
 * @retval 0  asked
 * @retval 2  param is NULL
 * @retval 48 WSM can't be reached, or its reply is not as expected (more than 2 radios, or 4 BSSes
 *            of one, among it)
 */
ORUSDK_API uint32_t oruSdkGetRadioParam(OruSdkRadioParam *param);

/* ---- Administrative status and disassociation ----------------------------------------------- */

/**
 * Reads whether a radio is administratively up, as stored.
 * Key "radio%d.adminStatus" of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; activationFlag receives the stored number as it is
 * @retval 0  read
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 7  the file can't be loaded
 * @retval 42 the key is missing or no number
 * @see oruSdkSetAdminStatus
 */
ORUSDK_API uint32_t oruSdkGetAdminStatus(OruSdkFeatureParam *param);

/**
 * Switches a radio administratively up or down: stores it and tells WSM, at once, without a commit.
 * Key "radio%d.adminStatus" of "/var/wsmDefaults".
 * @param param radioIndex 0 or 1; activationFlag 0 (down) or 1 (up)
 * @retval 0  stored and told; WSM may have said nothing within 20 s
 * @retval 2  param is NULL
 * @retval 3  radioIndex is 2 or more
 * @retval 47 activationFlag is neither 0 nor 1
 * @retval 7  the file can't be loaded
 * @retval 25 the key can't be written
 * @retval 8  the file can't be saved
 * @retval 48 stored, but WSM can't be reached or its reply is not as expected
 * @see oruSdkGetAdminStatus
 */
ORUSDK_API uint32_t oruSdkSetAdminStatus(OruSdkFeatureParam *param);

/**
 * Asks WSM to disassociate a station, at once. WSM's verdict is only logged; no answer within 20 s
 * is no failure.
 * @param macAddr the station, 6 bytes in transmission order
 * @retval 0  asked
 * @retval 2  macAddr is NULL
 * @retval 48 WSM can't be reached, or its reply is not as expected
 */
ORUSDK_API uint32_t sendDisAssocReq(const uint8_t *macAddr);

/* ---- BSS summary ---------------------------------------------------------------------------- */

/** Summary of one BSS. */
typedef struct OruSdkBssInfoParam {
    int32_t bssIndex;      /**< 0 to 3; a negative number forms its key with the sign */
    char ssid[33];         /**< up to 32 characters, NUL-terminated */
    uint32_t suppressSsid; /**< whether the SSID is hidden, as it is stored */
    char securityMode[12]; /**< of the first mode that is on: open access "OPEN Mode", WEP "WEP
                              Mode", WPA by its "bss%d.mixedIeMode" "WPA " (1, or missing), "WPA2 "
                              (2), "WPA + WPA2 " (3) or "UnKNown" (any other). Without any of them,
                              with dynamic WEP alone too, left as it is */
} OruSdkBssInfoParam;

/**
 * Summarises one BSS, with the checks that oruSdkCommitAll() makes of it (except for the pre-shared
 * key and a missing security mode). Reads "bss%d.ssId" and "bss%d.suppressSSIDFlag" of
 * "/var/wsmDefaults" and "bss%d.openAccessEnabled", "bss%d.wpaEnabled", "bss%d.wepEnabled",
 * "bss%d.dynamicWepEnabled", "bss%d.wpaAuthTypes", "bss%d.wpaEncTypes", "bss%d.mixedIeMode",
 * "radiusServer.1" of "/var/1x.conf".
 * @param param bssIndex 0 to 3; the other fields are filled in their order
 * @retval 0   read
 * @retval 2   param is NULL
 * @retval 115 bssIndex is above 3
 * @retval 7   a file can't be loaded
 * @retval 42  "bss%d.ssId" is missing or damaged; after 23, "bss%d.suppressSSIDFlag" is missing or
 *             no number, with the SSID filled
 * @retval 23  the stored SSID has more than 32 characters
 * @retval 26  "bss%d.openAccessEnabled", "bss%d.wpaEnabled" or "bss%d.wepEnabled" is missing or no
 *             boolean; "bss%d.dynamicWepEnabled" is then taken as off, with a warning
 * @retval 73  WPA is on, and the authentication type is missing or no number
 * @retval 74  WPA is on, and the encryption type is missing or no number
 * @retval 81  the BSS needs a RADIUS server, and none is configured
 */
ORUSDK_API uint32_t oruSdkGetBssInfoParam(OruSdkBssInfoParam *param);

#ifdef __cplusplus
}
#endif

#endif
