// Marks what a host may link against; everything else in the library is hidden.
#ifndef FOUNDATION_EXPORT_H
#define FOUNDATION_EXPORT_H

#define ZAVEL_API __attribute__((visibility("default")))

#endif
