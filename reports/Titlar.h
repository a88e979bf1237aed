#pragma once

#include <QString>

/// What the reports call the contests. Three tables, since each report has its own.
namespace reports {

/// The title in the report windows, for contests 0 to 10; empty for the others.
QString KortTitel(int test);

/// The title in the EDI report, for contests 0 to 5; empty for the others.
QString EdiTitel(int test);

/// The title in the summary and in the list of contacts, for numbers 0 to 32; empty above.
///
/// The numbers are those of an older and longer catalogue. From 6 on they name other contests than ours do,
/// and it stays so: files that were sent in carry these names.
QString SummaTitel(int test);

} // namespace reports
