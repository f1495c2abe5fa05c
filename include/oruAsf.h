/**
 * @file oruAsf.h
 * oruAsf: configuration dictionaries, messages between processes, and logging for the access
 * point's services and for liboruSdk.
 *
 * Conventions
 *  1. Plain C99 and C++11. Every name starts with oruAsf (operations) or OruAsf (types).
 *  2. A status of 0 or above is success, -1 failure; what an operation would have written is left
 *     alone when it fails. A NULL where a dictionary, connection, text or place is needed fails;
 *     only the bytes of messages are not checked. Nothing throws, aborts, prints or starts a
 *     thread.
 *  3. Handles are opaque, belong to the caller, and are given back once with the operation that
 *     their own page names. Giving back NULL does nothing.
 *  4. A handle may be used by one thread at a time; different handles are independent.
 *  5. When the environment holds ORU_ROOT (and the process is not set-uid), every absolute path of
 *     a configuration file, and every socket, is looked up inside that folder. Log lines keep the
 *     plain names.
 */
#ifndef ORU_ASF_H
#define ORU_ASF_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define ORUASF_API __attribute__((visibility("default")))
#define ORUASF_PRINTF(text, values) __attribute__((__format__(__printf__, text, values)))
#else
#define ORUASF_API
#define ORUASF_PRINTF(text, values)
#endif

/* ---- Configuration dictionaries ---------------------------------------------------------------
 *
 * A configuration file is text, one setting a line:
 *
 *     # a comment
 *     radio0.txPower=2
 *     bss0.ssId="Lobby \"guest\""
 *
 * The key ends at the first '='. A value stands as it is, or delimited: in double quotes, with the
 * escapes \\ \" \n \r \t and \xHH. Of a key that stands twice the last line counts. Comments, blank
 * lines, the order of the keys, unknown keys and lines that are no setting survive a save.
 */

/** A configuration file in memory. */
typedef struct OruAsfDict OruAsfDict;

/** The largest configuration file that can be loaded or saved, in bytes. */
#define ORUASF_DICT_MAX_BYTES (4u * 1024u * 1024u)

/**
 * Loads a configuration file.
 * @param dict where to put the handle; give it back with oruAsfDictFree()
 * @param path the file; an empty one is an empty dictionary
 * @retval 0  loaded
 * @retval -1 missing, unreadable, no regular file, with NUL bytes, above 4 MiB, or no memory
 */
ORUASF_API int32_t oruAsfDictCreate(OruAsfDict **dict, const char *path);

/**
 * Reads a whole decimal number of 32 bits, signed.
 * @param dict  the dictionary
 * @param key   the key
 * @param value receives the number; left alone on failure
 * @param flag  0; 1 says that the caller has a fallback of its own (same result)
 * @retval 0  read
 * @retval -1 absent, or anything else than a number
 */
ORUASF_API int32_t oruAsfDictGetInt(OruAsfDict *dict, const char *key, int32_t *value,
                                    int32_t flag);

/**
 * Reads exactly "true" (1) or "false" (0).
 * @param dict  the dictionary
 * @param key   the key
 * @param value receives 1 or 0; left alone on failure
 * @param flag  as for oruAsfDictGetInt()
 * @retval 0  read
 * @retval -1 absent, or anything else
 */
ORUASF_API int32_t oruAsfDictGetBool(OruAsfDict *dict, const char *key, int32_t *value,
                                     int32_t flag);

/**
 * Reads a text in either form.
 * @param dict  the dictionary
 * @param key   the key
 * @param value set to the text, which belongs to the dictionary until oruAsfDictFree();
 *              left as it was when the key is absent
 * @param flag  as for oruAsfDictGetInt()
 * @retval 0  read, or absent
 * @retval -1 a delimited text that is damaged, or no memory
 */
ORUASF_API int32_t oruAsfDictGetString(OruAsfDict *dict, const char *key, const char **value,
                                       int32_t flag);

/**
 * Reads a text in either form and tells its length.
 * @param dict  the dictionary
 * @param key   the key
 * @param value as for oruAsfDictGetString()
 * @param flag  as for oruAsfDictGetInt()
 * @return the length in bytes; -1 when absent or damaged, or without memory
 */
ORUASF_API int32_t oruAsfDictGetDelimitedString(OruAsfDict *dict, const char *key,
                                                const char **value, int32_t flag);

/**
 * Adds or replaces a key in memory; NULL deletes it, and deleting an absent key succeeds. A text
 * that could not stand bare (control bytes, blanks at the ends, a leading quote) is stored
 * delimited, so that it always reads back the same and never touches another key.
 * @param dict  the dictionary
 * @param key   the key
 * @param value the text; NULL to delete
 * @retval 0  done
 * @retval -1 a key that could not be read back (empty, with '=', blanks or control bytes, or with
 *            a leading '#'), a key or text above 4 MiB, or no memory
 */
ORUASF_API int32_t oruAsfDictSetString(OruAsfDict *dict, const char *key, const char *value);

/**
 * As oruAsfDictSetString(), always storing the delimited form.
 * @param dict  the dictionary
 * @param key   the key
 * @param value the text; NULL to delete
 * @retval 0  done
 * @retval -1 as for oruAsfDictSetString()
 */
ORUASF_API int32_t oruAsfDictSetDelimitedString(OruAsfDict *dict, const char *key,
                                                const char *value);

/**
 * Writes the whole dictionary to a file, atomically and durably: at any moment, also after a crash
 * or a power cut, readers see the old file or the new one, whole. Owner, mode and a symbolic
 * link's target are kept; a new file has mode 0600. A text that the file already holds, byte for
 * byte, writes nothing; when the file was changed within the last 90 seconds it is synced all the
 * same, since whoever changed it may have been killed before that.
 * A killed save may leave one temporary file beside it; the next save that writes takes it away.
 * @param dict the dictionary
 * @param path the file
 * @retval 0  saved, and on the disk
 * @retval -1 not saved (above 4 MiB, no regular file, no permission, no room, no memory, or the
 *            disk failed); the old file stands and nothing is left beside it. In one case the new
 *            file stands already: when its folder can't be synced, and it may not survive a power
 *            cut
 */
ORUASF_API int32_t oruAsfDictSave(OruAsfDict *dict, const char *path);

/**
 * Gives a dictionary back, with every text that was read from it.
 * @param dict the dictionary, or NULL
 */
ORUASF_API void oruAsfDictFree(OruAsfDict *dict);

/**
 * Visits every key once, in the order of the file, changes included (for services that compare
 * what they hold with what was saved).
 * @param dict    the dictionary
 * @param visit   called with the key and its value (NULL when the value is damaged), which both
 *                last until it returns; another result than 0 ends the walk
 * @param context handed to visit
 * @return 0, what visit returned, or -1 when there is no memory
 */
ORUASF_API int32_t oruAsfDictVisit(OruAsfDict *dict,
                                   int32_t (*visit)(void *context, const char *key,
                                                    const char *value),
                                   void *context);

/* ---- Messages, the caller's side --------------------------------------------------------------
 *
 * A service listens on a UNIX-domain sequenced-packet socket, /run/oru/PORT.VERSION. One packet is
 * one message.
 */

/** One connection. */
typedef struct OruAsfIpc OruAsfIpc;

/**
 * Makes an unconnected handle.
 * @param family   2
 * @param type     1
 * @param protocol 0
 * @return the handle, to be given back with oruAsfIpcClose(); NULL on failure
 */
ORUASF_API OruAsfIpc *oruAsfIpcOpen(int32_t family, int32_t type, int32_t protocol);

/**
 * Connects to a service of this machine. Waits for 2 seconds while its queue of callers is full.
 * @param ipc     an unconnected handle
 * @param host    "localhost"
 * @param port    port identifier of the service
 * @param version protocol version; a service that listens with another one is not found
 * @retval 0  connected
 * @retval -1 nobody listens, the queue stays full, the caller may not connect, or the service runs
 *            as neither root nor the caller's own user
 */
ORUASF_API int32_t oruAsfIpcConnect(OruAsfIpc *ipc, const char *host, uint32_t port,
                                    uint32_t version);

/**
 * Sends one message. Never raises SIGPIPE.
 * @param ipc     a connection
 * @param message its bytes
 * @param length  how many
 * @return length; -1 when it is 0 or too much for a packet, or the peer has gone or takes nothing
 *         now
 */
ORUASF_API int32_t oruAsfIpcSend(OruAsfIpc *ipc, const void *message, uint32_t length);

/**
 * Waits for a message.
 * @param ipc    a connection
 * @param waitMs the longest wait in milliseconds
 * @return 0 when none came; otherwise non-zero (also when the peer has gone, which the following
 *         oruAsfIpcRecv() then reports)
 */
ORUASF_API int32_t oruAsfIpcCheck(OruAsfIpc *ipc, uint32_t waitMs);

/**
 * Takes the message that is there, without waiting.
 * @param ipc    a connection
 * @param buffer receives the message
 * @param size   room in the buffer, in bytes
 * @return its bytes, cut to size; 0 when the peer has gone; -1 on failure or when nothing is there
 */
ORUASF_API int32_t oruAsfIpcRecv(OruAsfIpc *ipc, void *buffer, uint32_t size);

/**
 * Closes a connection and gives its handle back.
 * @param ipc the handle, or NULL
 */
ORUASF_API void oruAsfIpcClose(OruAsfIpc *ipc);

/**
 * Tells a connection's descriptor, for poll().
 * @param ipc the connection
 * @return the descriptor, which stays the connection's
 */
ORUASF_API int32_t oruAsfIpcDescriptor(const OruAsfIpc *ipc);

/* ---- Messages, the services' side -------------------------------------------------------------
 */

/** A service's listening socket. */
typedef struct OruAsfListener OruAsfListener;

/**
 * Listens as a service. Missing folders are made, and the socket's owner and group may connect. A
 * socket that a dead service left behind is replaced; one that answers is not.
 * @param port    port identifier of the service
 * @param version protocol version
 * @return the listener, to be given back with oruAsfIpcUnlisten(); NULL on failure, with errno set
 * (EADDRINUSE: such a service runs already)
 */
ORUASF_API OruAsfListener *oruAsfIpcListen(uint32_t port, uint32_t version);

/**
 * Takes the next caller.
 * @param listener the listener
 * @param waitMs   the longest wait in milliseconds
 * @return the connection, to be given back with oruAsfIpcClose(); NULL when none came
 */
ORUASF_API OruAsfIpc *oruAsfIpcAccept(OruAsfListener *listener, uint32_t waitMs);

/**
 * Tells the listening descriptor, for poll().
 * @param listener the listener
 * @return the descriptor, which stays the listener's
 */
ORUASF_API int32_t oruAsfIpcListenDescriptor(const OruAsfListener *listener);

/**
 * Stops listening and removes the socket.
 * @param listener the listener, or NULL
 */
ORUASF_API void oruAsfIpcUnlisten(OruAsfListener *listener);

/* ---- Message bytes ----------------------------------------------------------------------------
 *
 * All numbers are in network byte order. An element (TTLV) is its 32-bit type, a 16-bit count of
 * value bytes, and the value. The upper 16 bits of the type tell the kind of the value:
 * 1 an 8-bit number, 2 a 16-bit number, 3 a 32-bit number, 8 text, 12 a MAC address of 6 bytes;
 * the lower 16 bits identify the element.
 */

/** A decoded element. Numbers are in host order; the value is followed by a NUL byte. */
typedef struct OruAsfTtlv {
    uint32_t type;   /**< kind and identifier */
    uint32_t length; /**< bytes of the value */
    void *value;     /**< belongs to the element */
} OruAsfTtlv;

/**
 * Stores 16 bits.
 * @param at    where to store
 * @param value the number, in host order
 * @return the position behind them
 */
ORUASF_API uint8_t *oruAsfPut16(uint8_t *at, uint16_t value);

/**
 * Stores 32 bits.
 * @param at    where to store
 * @param value the number, in host order
 * @return the position behind them
 */
ORUASF_API uint8_t *oruAsfPut32(uint8_t *at, uint32_t value);

/**
 * Stores an element.
 * @param at     where to store
 * @param type   kind and identifier
 * @param length bytes of the value; for text (kind 8) plus the 6 bytes of the element's head; not
 *               looked at where the kind fixes it
 * @param value  a host variable of the kind's width for numbers, else the bytes
 * @return the position behind it; at itself, with nothing stored, when the length can't be (text
 *         below 6, or more than 65535 bytes) or value is NULL and not empty
 */
ORUASF_API uint8_t *oruAsfPutTtlv(uint8_t *at, uint32_t type, uint32_t length, const void *value);

/**
 * Converts a message's head, 16-bit type and 16-bit length, to host order in place.
 * @param message its first four bytes
 */
ORUASF_API void oruAsfNtohHdr(void *message);

/**
 * Reads 16 bits.
 * @param at where they stand
 * @return the number, in host order
 */
ORUASF_API uint16_t oruAsfGet16(const void *at);

/**
 * Reads 32 bits.
 * @param at where they stand
 * @return the number, in host order
 */
ORUASF_API uint32_t oruAsfGet32(const void *at);

/**
 * Decodes one element.
 * @param at       the element's first byte
 * @param consumed on entry the bytes that remain at that place; on return the bytes of the element
 * @return the element, to be given back with oruAsfFreeStructTtlv(); NULL (and *consumed 0) when
 *         it reaches past the bytes that remain, when its length does not fit its kind, or when
 *         there is no memory
 */
ORUASF_API OruAsfTtlv *oruAsfGetStructTtlv(const uint8_t *at, uint32_t *consumed);

/**
 * Gives an element back.
 * @param element the element, or NULL
 */
ORUASF_API void oruAsfFreeStructTtlv(OruAsfTtlv *element);

/**
 * Writes bytes as lower-case pairs joined by colons, NUL-terminated, cut to whole pairs that fit
 * size. 6 bytes take 18 characters.
 * @param bytes  what to show
 * @param length how many
 * @param text   receives the pairs
 * @param size   room in the text, in bytes
 * @return text
 */
ORUASF_API const char *oruAsfHexStr(const void *bytes, uint32_t length, char *text, uint32_t size);

/* ---- Logging ----------------------------------------------------------------------------------
 */

/** Log levels, as in the system log. */
enum { ORUASF_LOG_ERROR = 3, ORUASF_LOG_WARNING = 4, ORUASF_LOG_INFO = 6 };

/**
 * Writes one log line: to the system log, or where the environment's ORU_LOG says: "syslog",
 * "stderr", "none" or "file:PATH" (which ORU_ROOT does not move; made with mode 0600, and never
 * through a symbolic link). ORU_LOG_LEVEL, 0 to 7, is the highest level that is written (default
 * 7). Control bytes of the text are shown as \\xHH, line feeds at its end are left out, and a line
 * is cut below 8192 bytes. Keeps errno.
 * @param level  see above
 * @param source name of the component
 * @param line   place in the source
 * @param zero   0
 * @param format as for printf
 */
ORUASF_API void oruAsfLogMsg(int32_t level, const char *source, int32_t line, int32_t zero,
                             const char *format, ...) ORUASF_PRINTF(5, 6);

#ifdef __cplusplus
}
#endif

#endif
