#pragma once

#include <QString>
#include <QStringView>

/// The filter texts that more than one rule needs. Values go in as they are: there is no escaping, and a
/// value with an apostrophe makes a malformed filter that the cursor then refuses.
namespace store {

/// "column = 'value'"; a column with a blank in its name is to be given in its brackets.
QString Lika(QStringView kolumn, const QString& värde);

/// "column LIKE 'start*'"
QString BörjarMed(QStringView kolumn, const QString& början);

} // namespace store
