/* Numbers of the sibling applications that host the library, and of the product's editions. */
#ifndef CONFIG_ZAVELAPPLET_H
#define CONFIG_ZAVELAPPLET_H

/* Not every number is in use. Which key a number has differs between the path table and the style table;
 * ZavelPath::appKeyWithEnum gives the path table's. Interfaces take the number as a plain int, so that any
 * value may be asked for. */
typedef enum ZAVEL_APPLET {
  ZAVEL_APPLET_TRANSLATION_EDITOR = 1,
  ZAVEL_APPLET_STYLE_CLIENT_HG = 2, /* has styles only, no path */
  ZAVEL_APPLET_MEMORY_BROWSER = 3,
  ZAVEL_APPLET_USER_DICTIONARY_EDITOR = 4,
  ZAVEL_APPLET_TOOL_GX = 5,
  ZAVEL_APPLET_CORRESPONDENCE = 6,
  ZAVEL_APPLET_STYLE_CLIENT_PXW = 7, /* has styles only, no path */
  ZAVEL_APPLET_CORRESPONDENCE2 = 9,
  ZAVEL_APPLET_UPDATER = 15,
  ZAVEL_APPLET_PRODUCT_MENU = 16,
  ZAVEL_APPLET_BROWSER = 17,
  ZAVEL_APPLET_CASE_EDITOR = 18,
  ZAVEL_APPLET_TOOL_WZ = 20,
  ZAVEL_APPLET_MEMORY_EDITOR = 21
} ZAVEL_APPLET;

typedef enum ZAVEL_TYPE { ZAVEL_TYPE_GENERAL = 0, ZAVEL_TYPE_MEDICAL = 1 } ZAVEL_TYPE;

#endif
