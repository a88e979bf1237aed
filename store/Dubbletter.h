#pragma once

#include "store/Dubblett.h"

/// Shows the earlier contacts with the call on the entry form. @throws platform::Failure if the call holds an
/// apostrophe.
void VisaTestQSO();

/// Decides by the contest's rule whether the contact on the form is a duplicate, marks it and warns. The
/// warning may clear the form. @throws platform::Failure as VisaTestQSO
void KollaTidigare();
