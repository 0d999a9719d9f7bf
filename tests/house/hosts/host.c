/* A host in C: opens the dictionary folder it is given and prints how many forms a word has. Its own file is
 * no book, which opens all the same and answers that it isn't open. */
#include <book/SDic.h>
#include <engine/EngineAPI.h>
#include <stdio.h>

int main(int argc, char** argv) {
  uint32_t size = 0;
  Handle list = 0;
  void* book = 0;
  uint32_t methods = 0;
  if (argc != 3) return 2;
  if (InitAPI(argv[1], 0, 0) != 1) return 3;
  if (GetKatuyo(argv[2], &size, &list) != 1) return 1;
  printf("%u\n", size);
  GlobalFree(list);
  if (SDicOpenDictionary(argv[0], &book, 0, false, false) != 0) return 5;
  if (SDicGetAvailableMethods(book, &methods) != 0x80041007) return 6;
  SDicCloseDictionary(book);
  return EndAPI() == 1 ? 0 : 4;
}
