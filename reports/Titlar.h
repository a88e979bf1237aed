#pragma once

#include <QString>

/// What the reports call the contests.
namespace reports {

/// The title in the report windows, for contests 0 to 10; empty for the others.
QString KortTitel(int test);

/// The title in the EDI report, for contests 0 to 5; empty for the others.
QString EdiTitel(int test);

/// The title in the summary and in the list of contacts, for numbers 0 to 32; empty above.
///
/// The numbers are those of a longer catalogue: 6 and 9 to 14 stand for other contests than ours there, whose
/// reports carry these titles all the same.
QString SummaTitel(int test);

} // namespace reports
