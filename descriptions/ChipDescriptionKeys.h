// The keys a chip description's sections take, as one table: a key's name, its section, how its value
// is read and into which member, and what it means. The parser reads every key through this table;
// the guide's key tables are held to it by a test.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace chipdesc {

enum class Section : std::uint8_t { Page, Field, Button, RegisterText, Table };

namespace detail {
struct KeyValue;
}

struct Key {
    std::string_view name;
    Section section;
    // Reads the value into its member of the page or of the field being read; false: refused, the
    // error kept.
    bool (*read)(detail::KeyValue& value);
    std::string_view meaning;
};

std::span<const Key> DescriptionKeys();
// Nothing for a key the section does not take.
const Key* FindKey(Section section, std::string_view name);

} // namespace chipdesc
