// Writes the host's small test dictionary into the folder that it is given.
#include "zavel/HostDictionary.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  zavel::test::writeHostDictionary(argv[1]);
  return 0;
}
