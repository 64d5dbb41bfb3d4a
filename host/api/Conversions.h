#pragma once

#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <QString>
#include <QStringList>

/// Between the toolkit's strings and the API's: exact both ways for every text of the toolkit. Any
/// thread.
namespace host::api {

QString ToQString(const MString& text);
QStringList ToStringList(const MStringArray& texts);
MString ToMString(const QString& text);
MStringArray ToMStringArray(const QStringList& texts);

} // namespace host::api
