/* The flat services: folders, path forms and byte classes, exported with C linkage.
 *
 * Conventions of this header:
 *  1. Paths and strings are UTF-8, NUL-terminated. A file reference of any form is a path here, so that the
 *     functions that turn one form into another copy.
 *  2. A `char*` result is a new string from the general allocator: the caller frees it with free().
 *  3. Error numbers: 0 success, negative the system's own as told, positive the platform's.
 *  4. Without memory the result is TWC_ERROR_PARAMETER, null or false; nothing is thrown at the host.
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

/* True when any byte lies in 0x81 to 0x9F or 0xE0 to 0xFC. False for null. */
ZAVEL_API bool twcIsJapanese(const char* bytes);

/* Class of the byte of Shift_JIS text at `index`, walked from the first byte on: 0 a single byte, 1 the
 * first byte of a double-byte character, 2 the second, 3 an empty string (also null, or an index below 0).
 * At and beyond the NUL: the class of the last byte. */
ZAVEL_API int32_t twcSJISCode(const char* bytes, int32_t index);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif
