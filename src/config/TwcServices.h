/* The flat services: folders, path forms, files by creator, processes and byte classes, exported with C
 * linkage.
 *
 * Conventions of this header:
 *  1. Paths and strings are UTF-8, NUL-terminated. A file reference of any form is a path here, so that the
 *     functions that turn one form into another copy.
 *  2. A `char*` result is a new string from the general allocator: the caller frees it with free().
 *  3. Error numbers: 0 success, negative the system's own as told, positive the platform's.
 *  4. Without memory the result is TWC_ERROR_PARAMETER, null or false; nothing is thrown at the host but by
 *     twcGetPSN.
 *  5. A creator and a type are four characters, NUL-terminated.
 */
#ifndef CONFIG_TWCSERVICES_H
#define CONFIG_TWCSERVICES_H

#include <stdbool.h>
#include <stdint.h>

#include "foundation/Export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* No memory, or an empty or impossible name. */
#define TWC_ERROR_PARAMETER (-50)
/* One component of a path is over 254 bytes. */
#define TWC_ERROR_NAME_TOO_LONG (-1410)
/* There is no such process. */
#define TWC_ERROR_NO_PROCESS (-600)
/* The program could not be started. */
#define TWC_ERROR_NOT_STARTED (-1)

/* A running application. Both parts 0: none. */
typedef struct TwcProcessNumber {
  uint32_t high;
  uint32_t low;
} TwcProcessNumber;

/* Makes the folder `path` with all folders above it. 0 when it is there in the end, or when anything else
 * is there from the start. TWC_ERROR_PARAMETER for an empty or null path. Only the first 4096 bytes of the
 * path count. Folders made before an error stay. */
ZAVEL_API int32_t twcCreateFolder(const char* path);

/* The current user's home folder, or null on failure or when its path is over 4096 bytes. */
ZAVEL_API char* twcUserFolderCreateCopy(void);

/* Copies at most `size` - 1 bytes of `string` into `buffer` and adds the NUL; no character is cut in two.
 * Result: the bytes copied, without the NUL. With `size` below 1 or a null buffer nothing is written. */
ZAVEL_API int32_t twcGetBytesFromCFString(const char* string, char* buffer, int32_t size);

/* Makes the folder `name` in the folder `parent`. `name` is length-prefixed: one byte of length, then as
 * many bytes of UTF-8. TWC_ERROR_PARAMETER for a name that is empty, ".", ".." or holds "/" or NUL; a folder
 * that is there already is the platform's error. */
ZAVEL_API int32_t twcMakeFolderInFolderX(const char* parent, const uint8_t* name);

/* True when something is at `path`. */
ZAVEL_API bool twcCFStringToFSRef(const char* path);

/* One form of a path into another: copies. Null gives null. */
ZAVEL_API char* twcFSSpecToCFString(const char* path);
ZAVEL_API char* twcFSSpecToFullPath(const char* path);
ZAVEL_API char* twcFSSpecToUTF8Path(const char* path);
ZAVEL_API char* twcGetClassicFullPath(const char* path);
ZAVEL_API char* CreateUTF8CStringFromCFString(const char* string);

/* At most so many paths come from one call of twcCreatorTypeFileSearchInFolder. */
#define TWC_SEARCH_BATCH 30

/* Finds the files of a creator and type in `folder`, not in its subfolders, by rising names: up to
 * TWC_SEARCH_BATCH paths as new strings in `found`, which has room for that many. Result: their number, 0
 * when there are no more, TWC_ERROR_PARAMETER for a null argument. A `restart` that isn't zero begins a walk;
 * zero goes on with the last one, whatever `folder`, `creator` and `type` say. The walk is one for the
 * process: not for two threads. */
ZAVEL_API int32_t twcCreatorTypeFileSearchInFolder(const char* folder, const char* creator, const char* type,
                                                   char** found, int32_t restart);

/* Processes. A lookup is 0 and fills `process`, or is TWC_ERROR_NO_PROCESS and makes it the number 0.
 * `process` must not be null. */

/* This program. */
ZAVEL_API int32_t twcGetMyPSN(TwcProcessNumber* process);
/* The first running application of a creator and type. */
ZAVEL_API int32_t twcGetPSN2(const char* creator, const char* type, TwcProcessNumber* process);
/* The first running application of that name. */
ZAVEL_API int32_t twcGetProcessSerialNumberByName(const char* name, TwcProcessNumber* process);
/* Steps from `process`, at first the number 0, to the next running application. True at the end, with 0. */
ZAVEL_API bool twcGetNextPSN(TwcProcessNumber* process);
/* Whether an application of that creator and type runs. */
ZAVEL_API bool twcIsLaunchedApp(const char* creator, const char* type);
/* Whether this program is the one that the user works in. */
ZAVEL_API bool twcIsMyTopPSN(void);

/* Brings this program, or another one, forward: 0 or TWC_ERROR_NO_PROCESS. */
ZAVEL_API int32_t twcMakeMeFront(void);
ZAVEL_API int32_t twcSetFront(const TwcProcessNumber* process);

/* Path and creator of this program; null when the platform doesn't know it. */
ZAVEL_API char* twcGetCurrentFSSpec(void);
ZAVEL_API char* twcGetCurrentCreator(void);

/* Starts the program at the path `spec` without waiting for it; with `flag` it comes forward. 0,
 * TWC_ERROR_NOT_STARTED, or TWC_ERROR_PARAMETER for a null or empty path. */
ZAVEL_API int32_t LaunchTargetApplication(const char* spec, bool flag);

/* True when any byte lies in 0x81 to 0x9F or 0xE0 to 0xFC. False for null. */
ZAVEL_API bool twcIsJapanese(const char* bytes);

/* Class of the byte of Shift_JIS text at `index`, walked from the first byte on: 0 a single byte, 1 the
 * first byte of a double-byte character, 2 the second, 3 an empty string (also null, or an index below 0).
 * At and beyond the NUL: the class of the last byte. */
ZAVEL_API int32_t twcSJISCode(const char* bytes, int32_t index);

#ifdef __cplusplus
/* As twcGetPSN2, for C++ alone: throws the int32_t that that gives instead of 0. */
ZAVEL_API void twcGetPSN(const char* creator, const char* type, TwcProcessNumber* process);

} /* extern "C" */
#endif

#endif
