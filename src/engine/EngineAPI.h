/* The bilingual dictionary engine: seventeen functions over one dictionary, exported with C linkage.
 *
 * Glossary: midasi headword, imi meaning, katuyo conjugation, sikibetu identification of a stored entry,
 * yourei, kurei, bunrei example usage, phrase and sentence, hinsi part of speech, kihon basic (the shipped
 * dictionary), kana and kji the reading index and the written-form index. E, J and K at the end of a name:
 * English headwords, Japanese by reading, Japanese by kanji. `Serch` is the engine's spelling.
 *
 * Conventions of this header:
 *  1. All strings are bytes: ASCII for English, Shift_JIS for Japanese, NUL-terminated, never null unless
 *     said so. `const char*` is only read; a plain `char*` may be changed as its function tells.
 *  2. Every function returns an engine status, 1 for success; engine/EngineStatus.h lists them.
 *  3. A search clears its out-parameters first, so that they are 0 and null on any failure. A search that
 *     finds nothing returns 1 with size 0 and a null list.
 *  4. A result is a block list: lock its handle, read records, free it with GlobalFree. The caller owns it.
 *     Integers in a block list are little-endian and not aligned.
 *  5. The engine serves one thread at a time.
 */
#ifndef ENGINE_ENGINEAPI_H
#define ENGINE_ENGINEAPI_H

#include <stdint.h>

#include "foundation/Export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* A movable memory block. */
typedef struct zavel_handle* Handle;

/* The address of the block's bytes; valid until the handle is freed. Null for a null handle. */
ZAVEL_API void* GlobalLock(Handle handle);
/* Ends the use of the address. */
ZAVEL_API void GlobalUnlock(Handle handle);
/* Frees the block. A null handle is passed over. */
ZAVEL_API void GlobalFree(Handle handle);

/* Example usage, example phrase, example sentence: the English side and the Japanese side. */
typedef struct yourei {
  char* eng;
  char* jpn;
} yourei;
typedef struct kurei {
  char* eng;
  char* jpn;
} kurei;
typedef struct bunrei {
  char* eng;
  char* jpn;
} bunrei;

/* Identification of one stored user entry: all that locates its row, so that a change of the index since
 * the search is noticed. */
typedef struct sikibetu_data {
  uint32_t reserved;  /* 0 */
  uint16_t fileNo;    /* 0 for the first kanji index, k for continuation index k */
  uint16_t pos1;      /* row in the first table; 0xFFFF: none */
  uint16_t pos2;      /* row in the second table */
  uint16_t pos3;      /* row in the last table */
  uint32_t ix3Offset; /* offset of the third-level block */
  uint16_t ix3Size;   /* bytes in that block */
  uint16_t ix3Count;  /* rows in that block */
  uint16_t ix3Index;  /* the row */
  uint32_t dicOffset; /* offset of the entry in the .dic file */
} sikibetu_data;

/* One English user entry. */
typedef struct add_dic_e {
  char* word;              /* headword */
  uint8_t kind;            /* 1 a meaning entry with a part of speech, 2 a phrase entry */
  uint16_t hinsi;          /* part of speech 1 to 9 when kind is 1 */
  char* imi;               /* meaning, Shift_JIS and ASCII mixed */
  char* phrase;            /* the phrase, ASCII, when kind is 2 */
  uint16_t youreiCount;    /* number of examples */
  yourei** youreis;        /* their addresses */
  sikibetu_data* sikibetu; /* null to add; set to overwrite that entry */
} add_dic_e;

/* One Japanese user entry. */
typedef struct add_dic_j {
  char* kana;                  /* reading */
  char* kanji;                 /* written form, or null */
  char* imi;                   /* meaning, ASCII */
  uint16_t kureiCount;         /* number of phrases */
  kurei** kureis;              /* their addresses */
  uint16_t bunreiCount;        /* number of sentences */
  bunrei** bunreis;            /* their addresses */
  sikibetu_data* sikibetuKana; /* both null to add, both set to overwrite */
  sikibetu_data* sikibetuKanji;
} add_dic_j;

/* Opens the engine.
 *   kihonPath  prefix of the basic set's file names, ending in its own separator ("/usr/share/x/"); like
 *              the two others at most 1,023 bytes
 *   userPathE  prefix of the user English set, its last part 1 to 5 characters without extension, or null
 *   userPathJ  the same for the user Japanese set, or null
 * A user set of which no file exists is created.
 * Status: 1; 17; 18 a path missing, malformed or too long; 19 the header of the user kanji index can't be
 * read; 21 a user Japanese set that can't be created; 257, 258, 259 a basic, user English or user Japanese
 * file that can't be opened (258 also an English set that can't be created); 260 an index that can't be
 * loaded; 261 open already, and the engine stays so. On any other but 1 the engine is closed. */
ZAVEL_API uint16_t InitAPI(const char* kihonPath, const char* userPathE, const char* userPathJ);

/* Saves changed user indexes and closes the engine. Status: 1; 17; 20 never opened, or a user set that a
 * failed arrangement left unloaded (all else is saved); 21 a failed write;
 * 35 a call is still inside, and nothing was saved; 263 closed already. The engine is closed whatever the
 * status. */
ZAVEL_API uint16_t EndAPI(void);

/* Lists display lines of the English headwords that begin with `word`.
 *   mode  0 all, 1 only lines marked "***", 2 only lines marked "**" and not "***"
 *   size  out: bytes in *list
 *   list  out: records of u16 length and that many bytes of text, NUL included
 *   dic   1 basic, 2 user, 3 both
 * At most 50 lines from each dictionary and 50 in the merged list. A word shorter than three characters
 * finds only what is filed under exactly that word.
 * Status: 1; 17; 18 bad argument; 20; 21; 35; 257; 258; 2304. */
ZAVEL_API uint16_t SerchMidasiE(const char* word, uint8_t mode, uint32_t* size, Handle* list, uint8_t dic);

/* Lists display lines of the Japanese headwords that begin with `word`, in kana or with kanji.
 *   word  katakana in it is turned into hiragana in place, also when the status is 18
 * The rest as in SerchMidasiE, with 259 in the place of 258. */
ZAVEL_API uint16_t SerchMidasiJ(char* word, uint32_t* size, Handle* list, uint8_t dic);

/* Gives the entries of exactly `word`.
 *   word    trailing tabs and blanks are cut in place
 *   midasi  null, or a line as SerchMidasiE listed it: only the entry that yields exactly this line
 *   filter  0 whole entries, 3 meanings, 4 phrases, 5 examples
 *   list    out: records of u32 length and that many bytes of tagged entry text, without NUL
 * Basic entries come first, then entries of other spellings they refer to, then user entries.
 * Status: 1; 17; 18 bad argument; 20; 21; 35; 257; 258; 2304. */
ZAVEL_API uint16_t SerchImiE(char* word, const char* midasi, uint8_t filter, uint32_t* size, Handle* list,
                             uint8_t dic);

/* The same for Japanese.
 *   word  katakana is turned into hiragana and trailing blanks are cut, in place */
ZAVEL_API uint16_t SerchImiJ(char* word, const char* midasi, uint8_t filter, uint32_t* size, Handle* list,
                             uint8_t dic);

/* Gives the inflection table of an English word, base or inflected.
 *   list  out: records of u16 L, u8 form code, L bytes of text, NUL included. Codes: 1, 2 noun singular and
 *         plural; 3, 4, 5 adjective positive, comparative, superlative; 6 to 10 verb present, third person,
 *         past, past participle, progressive
 * Status: 1; 17; 18 bad argument; 19 and 257 a malformed conjugation record; 20; 21; 35; 257 no file. */
ZAVEL_API uint16_t GetKatuyo(const char* word, uint32_t* size, Handle* list);

/* Adds an English user entry, or overwrites the one that entry->sikibetu identifies; that one's word and the
 * new word must have the same key (their letters without case, blanks and marks).
 *   entry  word: letters, blank and & ' , - . / _; imi: Shift_JIS; phrase and eng of examples: ASCII; jpn of
 *          examples: Shift_JIS. None of them empty. phrase is read when kind is 2, hinsi when it is 1.
 * The entry is found at once and is on the disk after EndAPI answered 1.
 * Status: 1; 17; 18 a null entry, a text that is not as told, hinsi or kind out of range, an identification
 * that is no longer current; 20 a word of marks alone, a damaged index; 21; 35; 258; 2051 too many words of
 * one beginning; 2052 an entry of 65,535 bytes or more. On any other than 1 the dictionary is as it was. */
ZAVEL_API uint16_t AddUserDicE(const add_dic_e* entry);

/* The same for Japanese.
 *   entry  kana: hiragana, katakana and 0x815B 0x817C 0x8163; kanji: the same and kanji of JIS levels 1 and
 * 2, or null; imi and eng of examples: ASCII; jpn of examples: Shift_JIS. To overwrite, both identifications;
 * an entry keeps having or lacking kanji. Status: as AddUserDicE, with 259 in the place of 258; 19 a kanji
 * index that contradicts itself; 260 no memory slot for a further kanji index; 2049 ten further kanji indexes
 * are in use. */
ZAVEL_API uint16_t AddUserDicJ(const add_dic_j* entry);

/* Gives the user's entries of exactly `word` in structured form, each with its identification.
 *   word    English, or Japanese in kana; not changed
 *   midasi  null, or a line as SerchMidasiE or SerchMidasiJ listed it: only the entries that yield this line
 *   count   out: number of entries
 *   list    out: serial entries one behind the other; engine/UserEntry.h has their fields
 * Status: 1; 17; 18 bad argument; 20 an entry that can't be understood; 21; 35; 258 or 259. */
ZAVEL_API uint16_t SerchUserDicE(const char* word, const char* midasi, uint16_t* count, Handle* list);
ZAVEL_API uint16_t SerchUserDicJ(const char* word, const char* midasi, uint16_t* count, Handle* list);

/* Deletes the entry that an identification names; Japanese: by both of them. The other entries of its block
 * have to be searched again before their identifications serve.
 * Status: 1; 17; 18 a null pointer, an identification that is no longer current; 20; 21; 35; 258 or 259. */
ZAVEL_API uint16_t DelUserDicE(const sikibetu_data* sikibetu);
ZAVEL_API uint16_t DelUserDicJ(const sikibetu_data* kana, const sikibetu_data* kanji);

/* Lists the user's headwords, Japanese ones by their reading, each once, by letters without case or by kana.
 *   count  out: number of headwords, 65,535 for more
 *   list   out: headwords, each with its NUL
 *   size   out: bytes in *list
 * Status: 1; 17; 18 a null pointer; 20; 21; 35; 258 or 259. */
ZAVEL_API uint16_t GetListUserDicE(uint16_t* count, Handle* list, uint32_t* size);
ZAVEL_API uint16_t GetListUserDicJ(uint16_t* count, Handle* list, uint32_t* size);

/* Rewrites the files of a user set without what changes and deletions left behind. Search again afterwards:
 * identifications from before are refused unless all that they say still holds. Status: 1; 17; 20 a damaged
 * set; 21; 35; 258 or 259. On 17, 20 and 21 the files as they were may stand beside the set with the suffix
 * ".arrbkp" (docs/formats.md tells when they count); the engine then answers 20 until EndAPI. */
ZAVEL_API uint16_t ArrangeUserDicE(void);
ZAVEL_API uint16_t ArrangeUserDicJ(void);

#ifdef __cplusplus
}
#endif

#endif
