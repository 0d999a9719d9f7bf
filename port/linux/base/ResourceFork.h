// Records named by type and number in one run of bytes, in the published layout of resource forks.
#ifndef PORT_LINUX_BASE_RESOURCEFORK_H
#define PORT_LINUX_BASE_RESOURCEFORK_H

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace zavel {

// Type (four characters) and number of a record.
using ResourceName = std::pair<std::string, uint16_t>;
using ResourceRecords = std::map<ResourceName, std::string>;

// The fork that holds `records`; empty when they don't fit the layout: 16 MiB in all, and a list of some
// 5,000 records.
std::string writeResourceFork(const ResourceRecords& records);

// Finds one record in `fork`. False when the fork is damaged on the way to it; a fork without it gives an
// empty record and true. `type` has four characters.
bool readResource(std::string_view fork, const char* type, uint16_t number, std::string* record);

}  // namespace zavel

#endif
