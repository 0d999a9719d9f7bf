/* Playing the sounds that books hold. Exported with C linkage. */
#ifndef PLATFORM_IMPORTWAV_H
#define PLATFORM_IMPORTWAV_H

#include <stdint.h>

#include "foundation/Export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Plays the WAVE file of `length` bytes at `data`, such as SDicGetStreamData() gives, at full volume through
 * the platform's sound output, and returns when it is over. The data stays the caller's.
 * Codes: 0; 0x80000016 a null argument; 0x8004100E no WAVE file, or a broken one; 0x80041001 a coding of
 * samples that isn't known, or more than 256 MiB; 0x8000000C no memory; 0x80000013 nothing here can play
 * ("QuickTime error" in the log); 0x80000005 the device went away ahead of the sound's end. */
ZAVEL_API uint32_t ImportWAVDataFromMemory(const void* data, uint32_t length);

#ifdef __cplusplus
}
#endif

#endif
