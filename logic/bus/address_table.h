#pragma once

#include "detector.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <map>
#include <utility>
#include <vector>

namespace quellpad::bus {

// What the bus said to and of one receiver address.
struct AddressRow {
    int address = 0;
    protocol::Language language = protocol::Language::D;
    std::size_t frames = 0;
    std::size_t badChecks = 0;
    std::size_t answers = 0;
    std::string lastCommand; // in the operator's words
    QDateTime lastSeen;
};

// The columns of the per-address view, in order.
enum class AddressColumn : std::uint8_t {
    Address,
    Language,
    Frames,
    BadChecks,
    Answers,
    LastCommand,
    LastSeen
};
inline constexpr int kAddressColumns = 7;

// One row per receiver address heard on the bus. It holds at most one row per address
// and language, so a flood of any length cannot grow it past 4 x 256 rows.
class AddressTable {
public:
    void Add(const Heard& heard, const QDateTime& when);
    void Clear() { rows_.clear(); }
    // Rows ordered by a column, ties by address.
    std::vector<AddressRow> Sorted(AddressColumn column, bool ascending) const;
    std::size_t Size() const { return rows_.size(); }

private:
    std::map<std::pair<int, protocol::Language>, AddressRow> rows_;
};

// "D", "P", "ASCII", "MUX ASCII", as the mode selector names them.
QString LanguageName(protocol::Language language);
QStringList AddressHeaders();
QStringList AddressCells(const AddressRow& row);
// The rows as lines under their headers, tab-separated or (csv) as comma-separated values:
// what Copy and Save write.
QString AddressText(const std::vector<AddressRow>& rows, bool csv = false);

} // namespace quellpad::bus
