#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quellpad {

// The reply text of one receive event: " FF 01" (a blank before each byte) in "D" and
// "P", the characters themselves in the ASCII modes, nothing in any other mode.
QString ResponseText(const QString& mode, const QByteArray& bytes);

// Whether the response box is to be cleared before a reply is added: only a box of 251
// characters or more, and only when the reply holds the start of a new one ("FF" or
// "A2" in "D" and "P", "m" or "a" in the ASCII modes); otherwise the box simply grows.
bool ClearsResponseBox(const QString& mode, qsizetype boxLength, const QString& response);

// However long replies go on without a marker, the box keeps only this many of the
// latest characters, so that a chattering line cannot slow the window down.
inline constexpr qsizetype kResponseBoxMaximum = 4096;

// The alarm number of a switcher reply such as "12ia" or "7da": the reply without its
// last two characters, or nothing when the reply is no alarm reply.
std::optional<QString> AlarmNumberFromReply(const QString& response);

} // namespace quellpad
