#pragma once

#include <QString>

namespace featurebrowser {

/// The unit that a feature's description names: "Unit: us", "[us]", "(us)", "in us",
/// "in microseconds"; empty when it names none that is known.
QString unitFromDescription(const QString& description);

/// How often `from` goes into one `to`, for example 1000 for "ms" into "us"; 0 when the two are not
/// units of one quantity.
double unitFactor(const QString& from, const QString& to);

} // namespace featurebrowser
