/* The plain headers must serve a host in C. */
#include <stdlib.h>

#include "config/TwcServices.h"
#include "config/ZavelPath.h"
#include "config/ZavelStyle.h"

int zavelConfigInC(void) {
  char* copy = CreateUTF8CStringFromCFString("abc");
  const int same = copy && copy[0] == 'a' && copy[3] == '\0';
  free(copy);
  return same && styleNum() == 10 && zavelPathGetAppleyPath(ZAVEL_APPLET_TOOL_GX) == NULL &&
         !twcIsJapanese("abc") && zavelStyleTitleID(10).id == -1 && !twcIsLaunchedApp("zzzz", "APPL");
}
