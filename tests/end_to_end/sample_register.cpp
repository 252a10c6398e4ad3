#include "tests/end_to_end/sample_register.h"

#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string_view>

// A data page and a row in it, little-endian:
//
//  Jet 3   Jet 4   data page
//  0       0       01 01
//  8       12      row count, u16
//  10      14      directory: per row u16, low 13 bits start of the row, high bits flags (0 = live)
//
//  Jet 3   Jet 4   row
//  0       0       number of columns, u8 or u16
//  1       2       fixed-length columns
//  end             null mask, a bit a column: 1 = not null; of a Yes/No column the bit is the value

namespace orlo::end_to_end
{

namespace
{

struct Layout {
    std::size_t page_bytes;
    std::size_t count_bytes;  // of the number of columns at the start of a row
    std::size_t row_count;
    std::size_t directory;
};

constexpr Layout kJet3 = {2048, 1, 8, 10};
constexpr Layout kJet4 = {4096, 2, 12, 14};

struct Column {
    std::size_t id;
    std::size_t offset;  // in the fixed part
    std::size_t bytes;   // 0: Yes/No
};

constexpr std::size_t kTerminaliColumns = 24;
constexpr Column kTerminale = {0, 0, 2};
constexpr Column kAttivo = {3, 0, 0};
constexpr Column kPorta = {5, 6, 2};
constexpr Column kVelocita = {7, 10, 4};
constexpr Column kTentativi = {18, 32, 2};
constexpr Column kAbilitazioneModem = {20, 0, 0};
constexpr Column kTipo = {21, 36, 2};

constexpr std::size_t kOutputColumns = 2;
constexpr Column kTracciato = {0, 0, 2};

std::size_t Number(const std::string& bytes, std::size_t at, std::size_t count)
{
    std::size_t value = 0;
    for (std::size_t i = count; i-- > 0;)
        value = value * 256 + static_cast<unsigned char>(bytes[at + i]);
    return value;
}

/// A live row in place.
class Row
{
public:
    Row(std::string& file, const Layout& layout, std::size_t start, std::size_t end)
        : file_(file), layout_(layout), start_(start), end_(end)
    {
    }

    std::size_t Columns() const { return Number(file_, start_, layout_.count_bytes); }
    std::size_t Value(const Column& column) const
    {
        return Number(file_, Place(column), column.bytes);
    }

    bool Holds(std::string_view text) const
    {
        return std::string_view(file_).substr(start_, end_ - start_).find(text) !=
               std::string_view::npos;
    }

    void Set(const Column& column, int value)
    {
        for (std::size_t i = 0; i < column.bytes; ++i)
            file_[Place(column) + i] = static_cast<char>((value >> (8 * i)) & 255);
        SetBit(column, /*on=*/column.bytes > 0 || value != 0);
    }

private:
    std::size_t Place(const Column& column) const
    {
        return start_ + layout_.count_bytes + column.offset;
    }
    void SetBit(const Column& column, bool on)
    {
        const std::size_t mask = end_ - (Columns() + 7) / 8;
        const unsigned bit = 1U << (column.id % 8);
        const unsigned old = static_cast<unsigned char>(file_[mask + column.id / 8]);
        file_[mask + column.id / 8] = static_cast<char>(on ? old | bit : old & ~bit);
    }

    std::string& file_;
    const Layout& layout_;
    std::size_t start_;
    std::size_t end_;
};

void ForEachRow(std::string& file, const Layout& layout, const std::function<void(Row&)>& visit)
{
    constexpr std::size_t kStartBits = 0x1FFF;
    for (std::size_t page = 0; page < file.size(); page += layout.page_bytes) {
        if (Number(file, page, 2) != 0x0101) continue;
        std::size_t end = page + layout.page_bytes;
        const std::size_t rows = Number(file, page + layout.row_count, 2);
        for (std::size_t i = 0; i < rows; ++i) {
            const std::size_t entry = Number(file, page + layout.directory + 2 * i, 2);
            const std::size_t start = page + (entry & kStartBits);
            if (entry <= kStartBits) {
                Row row(file, layout, start, end);
                visit(row);
            }
            end = start;
        }
    }
}

void Require(bool fact, const char* what)
{
    if (!fact) throw std::runtime_error(what);
}

void EditTerminal(std::string& file, const Layout& layout, const TerminalRow& wanted)
{
    int found = 0;
    ForEachRow(file, layout, [&](Row& row) {
        const auto terminal = static_cast<std::size_t>(wanted.terminal);
        if (row.Columns() != kTerminaliColumns || row.Value(kTerminale) != terminal) return;
        ++found;
        row.Set(kTipo, wanted.type);
        row.Set(kPorta, wanted.port);
        row.Set(kVelocita, wanted.speed);
        row.Set(kTentativi, wanted.retries);
        row.Set(kAttivo, wanted.active ? 1 : 0);
        row.Set(kAbilitazioneModem, wanted.modem ? 1 : 0);
    });
    Require(found == 1, "the sample register has not exactly one row of that terminal");
}

/// Orlo and Sipa need the protocol component: a test that wants one says so.
void MakeAllSerial(std::string& file, const Layout& layout)
{
    constexpr std::size_t kLastObjectType = 2;
    constexpr int kStrale = 4;
    ForEachRow(file, layout, [](Row& row) {
        if (row.Columns() == kTerminaliColumns && row.Value(kTipo) <= kLastObjectType)
            row.Set(kTipo, kStrale);
    });
}

void EditLayout(std::string& file, const Layout& layout, int tracciato)
{
    int found = 0;
    ForEachRow(file, layout, [&](Row& row) {
        if (row.Columns() != kOutputColumns || !row.Holds("AZ0042")) return;
        ++found;
        row.Set(kTracciato, tracciato);
    });
    Require(found == 1, "the sample register has not exactly one row of table Output");
}

}  // namespace

std::string SampleRegister(Jet version, const std::vector<TerminalRow>& rows, int layout)
{
    const bool jet3 = version == Jet::k3;
    const Layout& format = jet3 ? kJet3 : kJet4;
    std::ifstream sample(
        jet3 ? ORLO_TEST_DATA "/nimbo-full-97.mdb" : ORLO_TEST_DATA "/nimbo-full-2000.mdb",
        std::ios::binary);
    std::string file(std::istreambuf_iterator<char>(sample), {});
    Require(!file.empty(), "no sample register");
    MakeAllSerial(file, format);
    for (const TerminalRow& row : rows) EditTerminal(file, format, row);
    EditLayout(file, format, layout);
    return file;
}

}  // namespace orlo::end_to_end
