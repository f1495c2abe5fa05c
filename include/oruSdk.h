/**
 * @file oruSdk.h
 * oruSdk: read and change the configuration of a dual-radio 802.11a/b/g/n access point, and ask its
 * services for live status.
 *
 * Conventions
 *  1. Plain C99 and C++11. Every operation is synchronous and returns a return code: 0 is success,
 *     anything else indexes oruSdkRcStr[]. Operations that return something else say so.
 *  2. One operation returns 122, for which the table has no text: check a code against
 *     ORUSDK_RC_COUNT before indexing. Code 0 has no message of its own.
 *  3. Records are the caller's. A getter fills the fields that it describes and leaves the others;
 *     on failure it leaves what it had not yet read. Nothing is allocated for the caller. Fields
 *     named `reserved` are neither read nor written.
 *  4. Radio indexes are 0 and 1, BSS indexes 0 to 3. Arguments are checked in the order of the
 *     @retval lines; the first failure decides, with nothing read or written.
 *  5. A setter changes a configuration file, atomically, and nothing else: the access point takes
 *     the new values with oruSdkCommitRadio() or oruSdkCommitAll(). Operations that act at once say
 *     so.
 *  6. The library has no threads and no locks. Any thread may call any operation. Two writers of
 *     one file at the same time can lose one change, since each save writes the whole file.
 *  7. Every failure is logged once, by oruAsfLogMsg() of liboruAsf.
 *  8. When the environment holds ORU_ROOT, all files and sockets are looked up inside that folder.
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

/** The library's version, "5.0.600.16": the same constant text on every call. */
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
    uint16_t reserved;
    uint16_t radioIndex;     /**< 0 or 1 */
    uint32_t activationFlag; /**< 0 off, 1 on; a getter gives what is stored, unchecked */
} OruSdkFeatureParam;

/** A number, such as an option, a rate or a mode. */
typedef struct OruSdkOptionParam {
    uint32_t reserved;
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
 * @retval 26 a security flag is missing or neither "true" nor "false"
 * @retval 80 a BSS has no security mode
 * @retval 73 a BSS with WPA has no authentication type
 * @retval 74 a BSS with WPA has no encryption type
 * @retval 72 a BSS with a pre-shared key has none stored
 * @retval 81 a BSS needs a RADIUS server, and none is configured
 */
ORUSDK_API uint32_t oruSdkCommitAll(void);

/**
 * Replaces "/var/wsmDefaults" and then "/var/1x.conf" by their factory copies (".orig" beside
 * them). Takes effect with the next commit.
 * @retval 0  done
 * @retval 58 a file can't be copied; the one before it stays replaced
 */
ORUSDK_API uint32_t oruSdkResetToDefaults(void);

/**
 * Restores the factory values of one BSS in both files. Takes effect with the next commit. A
 * failure before the saves leaves both files unchanged; "/var/wsmDefaults" is saved first.
 * @param bssIndex 0 to 3; a negative number is not refused and forms its keys with the sign
 * @retval 0   done
 * @retval 115 bssIndex is above 3
 * @retval 7   one of the four files can't be loaded
 * @retval 23  the factory SSID has more than 32 characters
 * @retval 26  a factory value can't be read (flags, WEP and WPS values)
 * @retval 42  a factory value can't be read (the others)
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
    char countryCode[3]; /**< ISO 3166 letters of the country, and one for the environment */
    uint16_t attr1;      /**< attr1 to attr9: as WSM sent them; of no meaning to this library */
    uint16_t attr2;
    uint16_t attr3;
    uint16_t attr4;
    uint32_t attr5;
    uint8_t attr6;
    uint16_t attr7;
    uint16_t attr8;
    uint32_t attr9;
    uint8_t bandSupport[4]; /**< [2] is 0 on a product for 2.4 GHz only; the others as sent */
    uint8_t channelCount;   /**< channels that follow, below 60 */
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
 * Asks WSM for its radios: country, allowed channels, bands. Asks afresh on each call, and waits at
 * most 20 seconds.
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
 * radio 0 as WSM told it when the process first needed it. The letter of the environment is
 * dropped.
 * Keys "worldModeSupport", "countryCodeFlag" and "countryCode" of "/var/wsmDefaults", device-wide.
 * @param param worldModeSupport and countryCode receive what is read, in this order
 * @retval 0     read
 * @retval 2     param is NULL
 * @retval 7     the file can't be loaded
 * @retval 42    a key is missing or damaged
 * @retval 48, 1 the country is the radio's, and this first question to WSM failed, as in
 *               oruSdkGetRadioInfo()
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
 * rate; an automatic one only radar detection and the mode. Takes effect with the next commit.
 * Keys as in oruSdkGetChannelParam(), and "periodicMeasFlag" and "measurementDisabled",
 * device-wide; a fixed channel switches periodic measurement off, and one of 5 GHz sets
 * "radio%d.broadcastRate5GHz" to 69.
 * @param param radioIndex 0 or 1; channel 0 with autoSelMode 0 to 2 (and any periodicDfsTimer when
 *              that is 1), or a channel that exists with secondaryChannel 0 or four channels apart
 * @retval 0   written
 * @retval 2   param is NULL
 * @retval 3   radioIndex is 2 or more
 * @retval 7   the file can't be loaded
 * @retval 42  a key that a check needs is missing or no number; each is read by its check
 * @retval 120 a radar channel while radar detection is on
 * @retval 106 channel bonding is on and there is no secondaryChannel
 * @retval 19  a channel above 14 in an 802.11b/g mode, or 1 to 14 in 802.11a
 * @retval 20  channel is 0 and autoSelMode above 2
 * @retval 19  no such channel; 14 exists without channel bonding alone
 * @retval 106 secondaryChannel does not exist, is not four channels apart, or is no partner of the
 *             channel at 5 GHz (36/40, 44/48 and so on; 140 has none)
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
 * "radio%d.channelBondingMode", where a missing one counts as 0.
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
 * Replaces the list of channels on which radar was seen, which outlives a restart.
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

/* ---- 802.11 mode ---------------------------------------------------------------------------- */

/* ---- Rate codes and rates ------------------------------------------------------------------- */

/* ---- Basic rate sets ------------------------------------------------------------------------ */

/* ---- MAC, beacon, retry and threshold parameters -------------------------------------------- */

/* ---- Protection, standard extensions, scanning and admission -------------------------------- */

/* ---- QoS and channel bonding ---------------------------------------------------------------- */

/* ---- BSS assignment and identity ------------------------------------------------------------ */

/* ---- Security modes: open and WPA ----------------------------------------------------------- */

/* ---- WEP ------------------------------------------------------------------------------------ */

/* ---- WPA pre-shared key and pass-phrase ----------------------------------------------------- */

/* ---- Security timeouts and MAC authentication ----------------------------------------------- */

/* ---- RADIUS servers ------------------------------------------------------------------------- */

/* ---- MAC access-control list ---------------------------------------------------------------- */

/* ---- WPS configuration ---------------------------------------------------------------------- */

/* ---- WPS device PIN and password ------------------------------------------------------------ */

/* ---- WPS enrollment and status -------------------------------------------------------------- */

/* ---- Statistics ----------------------------------------------------------------------------- */

/* ---- Live tables ---------------------------------------------------------------------------- */

/* ---- Administrative status and disassociation ----------------------------------------------- */

/* ---- BSS summary ---------------------------------------------------------------------------- */

#ifdef __cplusplus
}
#endif

#endif
