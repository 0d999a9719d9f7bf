/* What a host in C sees of the engine: the header, the records and the calls. */
#include <stddef.h>

#include "engine/EngineAPI.h"

size_t sikibetuSizeInC(void) {
  return sizeof(sikibetu_data);
}
size_t sikibetuDicOffsetInC(void) {
  return offsetof(sikibetu_data, dicOffset);
}

/* Bytes that the headwords under `word` take in the set at `kihonPath`; -1 on a failure. */
long serchInC(const char* kihonPath, const char* word) {
  uint32_t size = 0;
  Handle list = NULL;
  long bytes = -1;
  if (InitAPI(kihonPath, NULL, NULL) != 1) return -1;
  if (SerchMidasiE(word, 0, &size, &list, 1) == 1) {
    const unsigned char* records = GlobalLock(list);
    bytes = records != NULL ? records[0] + records[1] * 256L : 0;
    GlobalUnlock(list);
    GlobalFree(list);
  }
  return EndAPI() == 1 ? bytes : -1;
}
