#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <cstdint>

// Raw commands typed by the operator: a line of hexadecimal byte groups, or of ASCII
// characters, turned into the bytes that go out on the ports as they stand.
namespace quellpad {

// Most bytes one typed line can hold.
inline constexpr int kTypedBytesCapacity = 51;

// The value of a group of one or two characters, each read as a hexadecimal digit ("A"/"a"
// to "F"/"f" are 10 to 15, any other character its code minus 48): 16 × first + second for
// two characters, the digit itself for one, 0 for any other length. Characters that are no
// hexadecimal digit give values outside 0..255 (or below 0); the caller decides.
int HexPairValue(QStringView group);

struct TypedLine {
    QByteArray bytes;
    // Quotation marks without a partner two places on; each earns the operator one
    // "No closing quote found.".
    int unclosedQuotes = 0;
    // A group that is no byte (a character that is no hexadecimal digit), or more bytes
    // than a line holds: nothing of the line may be sent.
    bool refused = false;
};

// Scans a line of hexadecimal byte groups separated by blanks ("FF 01 00 00 00 00 01").
// Only the first two characters of a group count ("FF01" is FF); a single digit before a
// blank is that digit ("1 2" is 01 02); a trailing blank ends the line. A character in
// quotes ("A") is taken by its code, but the next byte takes its place, so it goes out
// only when nothing follows it.
TypedLine ParseTypedBytes(QStringView line);

// The bytes of a line typed in the ASCII modes: each character's code. Characters above
// code 127 cannot be typed; such a line is refused (empty result, refused set).
TypedLine TypedAsciiBytes(QStringView line);

} // namespace quellpad
