#pragma once

#include <QByteArray>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QVariant>

/// Values as an INI file gives them back. A file that was just read holds texts where the writer
/// had numbers, one text where it had a list of one, and nothing where it had an empty list; people
/// edit these files as well. Each function stores what `stored` means for the type and answers
/// true, or answers false and leaves `value` alone.
namespace IniValues {

/// Byte arrays above this many bytes are no state of ours.
constexpr int MAXIMUM_BYTES = 16 * 1024 * 1024;

bool Parse(const QVariant& stored, bool& value);
bool Parse(const QVariant& stored, int& value);
/// A text with commas that nobody quoted comes as a list: its parts are joined again.
bool Parse(const QVariant& stored, QString& value);
bool Parse(const QVariant& stored, QStringList& value);
bool Parse(const QVariant& stored, QByteArray& value);
bool Parse(const QVariant& stored, QRect& value);

} // namespace IniValues
