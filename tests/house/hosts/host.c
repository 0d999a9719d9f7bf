/* A host in C: opens the dictionary folder it is given and prints how many forms a word has. */
#include <engine/EngineAPI.h>
#include <stdio.h>

int main(int argc, char** argv) {
  uint32_t size = 0;
  Handle list = 0;
  if (argc != 3) return 2;
  if (InitAPI(argv[1], 0, 0) != 1) return 3;
  if (GetKatuyo(argv[2], &size, &list) != 1) return 1;
  printf("%u\n", size);
  GlobalFree(list);
  return EndAPI() == 1 ? 0 : 4;
}
