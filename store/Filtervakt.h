#pragma once

#include "platform/recordset.h"

namespace store {

/// Gives a cursor back the filter it had, on its first row. For searches that come in between: the entry form
/// reads the country of its call from the same cursor that the country of a spot is looked up with.
class Filtervakt {
public:
    explicit Filtervakt(platform::Recordset& markör)
        : markör_(markör)
        , filter_(markör.IsOpen() ? markör.Filter() : QString()) {}
    ~Filtervakt() {
        try {
            if (markör_.IsOpen()) markör_.Filter(filter_);
        } catch (const platform::Failure&) {
            // A filter that stood once can be set again; if not, the rows stay as the search has left them.
        }
    }
    Filtervakt(const Filtervakt&) = delete;
    Filtervakt& operator=(const Filtervakt&) = delete;

private:
    platform::Recordset& markör_;
    QString filter_;
};

} // namespace store
