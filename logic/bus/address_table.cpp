#include "address_table.h"

#include <QCoreApplication>

#include <algorithm>

namespace quellpad::bus {

void AddressTable::Add(const Heard& heard, const QDateTime& when) {
    const protocol::Command& command = heard.command;
    if (command.address <= 0) {
        return; // the switcher's and multiplexer's texts name no receiver
    }
    AddressRow& row = rows_[{command.address, command.language}];
    row.address = command.address;
    row.language = command.language;
    row.lastSeen = when;
    if (heard.badCheck) {
        ++row.badChecks;
        return;
    }
    if (heard.answer) {
        ++row.answers;
        return;
    }
    ++row.frames;
    row.lastCommand = command.Describe();
}

std::vector<AddressRow> AddressTable::Sorted(AddressColumn column, bool ascending) const {
    std::vector<AddressRow> out;
    out.reserve(rows_.size());
    for (const auto& entry : rows_) {
        out.push_back(entry.second);
    }
    const auto key = [column](const AddressRow& row) {
        switch (column) {
        case AddressColumn::Language:
            return static_cast<qint64>(row.language);
        case AddressColumn::Frames:
            return static_cast<qint64>(row.frames);
        case AddressColumn::BadChecks:
            return static_cast<qint64>(row.badChecks);
        case AddressColumn::Answers:
            return static_cast<qint64>(row.answers);
        case AddressColumn::LastSeen:
            return row.lastSeen.toMSecsSinceEpoch();
        case AddressColumn::LastCommand:
        case AddressColumn::Address:
            break;
        }
        return static_cast<qint64>(row.address);
    };
    std::stable_sort(out.begin(), out.end(),
                     [&key, column, ascending](const AddressRow& a, const AddressRow& b) {
                         if (column == AddressColumn::LastCommand &&
                             a.lastCommand != b.lastCommand) {
                             return ascending == (a.lastCommand < b.lastCommand);
                         }
                         if (key(a) != key(b)) {
                             return ascending == (key(a) < key(b));
                         }
                         return a.address < b.address;
                     });
    return out;
}

QString LanguageName(protocol::Language language) {
    switch (language) {
    case protocol::Language::D:
        return QStringLiteral("D");
    case protocol::Language::P:
        return QStringLiteral("P");
    case protocol::Language::Ascii:
        return QStringLiteral("ASCII");
    case protocol::Language::MuxAscii:
        break;
    }
    return QStringLiteral("MUX ASCII");
}

QStringList AddressHeaders() {
    return {QCoreApplication::translate("AddressTable", "Address"),
            QCoreApplication::translate("AddressTable", "Language"),
            QCoreApplication::translate("AddressTable", "Frames"),
            QCoreApplication::translate("AddressTable", "Bad checksum"),
            QCoreApplication::translate("AddressTable", "Answers"),
            QCoreApplication::translate("AddressTable", "Last command"),
            QCoreApplication::translate("AddressTable", "Last seen")};
}

QStringList AddressCells(const AddressRow& row) {
    return {QString::number(row.address),
            LanguageName(row.language),
            QString::number(row.frames),
            QString::number(row.badChecks),
            QString::number(row.answers),
            QString::fromStdString(row.lastCommand),
            row.lastSeen.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"))};
}

QString AddressText(const std::vector<AddressRow>& rows, bool csv) {
    const auto line = [csv](QStringList cells) {
        if (!csv) {
            return cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
        }
        for (QString& cell : cells) {
            cell = u'"' + cell.replace(u'"', QStringLiteral("\"\"")) + u'"';
        }
        return cells.join(QLatin1Char(',')) + QLatin1Char('\n');
    };
    QString text = line(AddressHeaders());
    for (const AddressRow& row : rows) {
        text += line(AddressCells(row));
    }
    return text;
}

} // namespace quellpad::bus
