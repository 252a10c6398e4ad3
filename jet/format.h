#pragma once

#include <cstddef>

namespace jet
{

/// What differs between the two versions of the file: sizes and offsets in bytes. Offsets in a
/// table definition count from the start of its first page.
struct Format {
    std::size_t page_bytes;
    bool unicode;  ///< text and names are UTF-16LE, otherwise code page 1252

    std::size_t longest_row;
    std::size_t map_row_bytes;  ///< usual length of a usage map

    struct {
        std::size_t row_count;
        std::size_t directory;
    } data_page;

    struct {
        std::size_t rows;        ///< number of rows
        std::size_t autonumber;  ///< last one given out
        std::size_t table_kind;  ///< the counts and the map pointers follow it
        std::size_t counters;    ///< end of the header: one counter block per real index
        std::size_t counter_bytes;
        std::size_t distinct_keys;  ///< in a counter block
        std::size_t column_bytes;
        std::size_t key_bytes;    ///< column block of a real index
        std::size_t key_columns;  ///< in it: ten times column id and order
        std::size_t key_map;      ///< in it: row pointer of the index's map
        std::size_t key_root;     ///< in it: root page
        std::size_t key_flags;    ///< in it
        std::size_t index_bytes;  ///< block of a logical index
        std::size_t index_real;   ///< in it: number of the real index
        std::size_t index_kind;   ///< in it
    } definition;

    struct {
        std::size_t id;
        std::size_t slot;
        std::size_t sort_order;
        std::size_t sort_version;  ///< 0 = the version does not have it
        std::size_t scale;
        std::size_t flags;
        std::size_t extended_flags;  ///< 0 = the version does not have them
        std::size_t fixed_offset;
        std::size_t length;
    } column;

    struct {
        std::size_t previous;
        std::size_t next;
        std::size_t tail;
        std::size_t prefix;
        std::size_t prefix_bytes;  ///< width of the prefix length
        std::size_t level;         ///< 0 on leaves
        std::size_t bitmap;
        std::size_t entries;
    } index_page;
};

// clang-format off
inline constexpr Format kJet3{
    .page_bytes = 2048, .unicode = false, .longest_row = 2012, .map_row_bytes = 133,
    .data_page = {.row_count = 8, .directory = 10},
    .definition = {.rows = 12, .autonumber = 16, .table_kind = 20, .counters = 43,
                   .counter_bytes = 8, .distinct_keys = 4, .column_bytes = 18,
                   .key_bytes = 39, .key_columns = 0, .key_map = 30, .key_root = 34, .key_flags = 38,
                   .index_bytes = 20, .index_real = 4, .index_kind = 19},
    .column = {.id = 1, .slot = 3, .sort_order = 9, .sort_version = 0, .scale = 12, .flags = 13,
               .extended_flags = 0,
               .fixed_offset = 14, .length = 16},
    .index_page = {.previous = 8, .next = 12, .tail = 16, .prefix = 20, .prefix_bytes = 1, .level = 21,
                   .bitmap = 22, .entries = 248},
};

inline constexpr Format kJet4{
    .page_bytes = 4096, .unicode = true, .longest_row = 4060, .map_row_bytes = 69,
    .data_page = {.row_count = 12, .directory = 14},
    .definition = {.rows = 16, .autonumber = 20, .table_kind = 40, .counters = 63,
                   .counter_bytes = 12, .distinct_keys = 4, .column_bytes = 25,
                   .key_bytes = 52, .key_columns = 4, .key_map = 34, .key_root = 38, .key_flags = 46,
                   .index_bytes = 28, .index_real = 8, .index_kind = 23},
    .column = {.id = 5, .slot = 7, .sort_order = 11, .sort_version = 14, .scale = 12, .flags = 15,
               .extended_flags = 16,
               .fixed_offset = 21, .length = 23},
    .index_page = {.previous = 12, .next = 16, .tail = 20, .prefix = 24, .prefix_bytes = 2, .level = 26,
                   .bitmap = 27, .entries = 480},
};
// clang-format on

/// First byte of a page.
enum PageType : unsigned char {
    kDataPage = 1,
    kDefinitionPage = 2,
    kIndexNode = 3,
    kIndexLeaf = 4,
    kBitmapPage = 5,
};

}  // namespace jet
