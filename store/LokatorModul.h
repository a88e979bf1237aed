#pragma once

#include <QString>

/// Bearing, distance and what is remembered of locators.

/// The own locator as it stands in frTestInst.
QString EgenTestLokator();

/// Shows distance and bearing between two locators. While the exchange is a locator, what the operator has
/// typed is the target instead of Till. A locator that can't be read shows the message and leaves the labels.
void VisaRiktningAvstånd(const QString& Från, const QString& Till);

/// Fills the exchange with the locator last heard from the call on the form.
void KollaLokator();

/// Remembers the locator on the form for its call.
void SparaLokator();

/// Shows and stores the row with the highest points as the longest contact. @throws platform::Failure
void UppdateraLängstaQSO();
