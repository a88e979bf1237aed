#pragma once

#include <QLabel>
#include <QString>

/// From the call on the entry form, or of a spot, to a country.

/// Shows country, zones, bearing and worked bands of the call on the entry form. A call that does not resolve
/// leaves everything as it was; a contact that is being edited keeps its country.
/// @throws platform::Failure if the call holds an apostrophe.
void VisaTestDXCC();

/// Announces a country that is not in the log yet.
void KollaDXCC();

/// Announces a call area that is not in the log yet.
void KollaDiplom();

/// Marks a country as worked on a band and in a mode. Anything but one row for the country does nothing.
void LäggTillKördaDXCC(QString& DXCC, QString& Trafiksätt, QString& Band);

/// The key of a spot's call sign, "?" if it does not resolve; an empty call leaves the key as it was.
/// Works on SpotSignal and SpotPrefix.
void KollaSpotPrefix();

/// Evaluates whether a country is unworked on all modes and bands. Nobody hears the result.
void KontrolleraNyttLand(QString& DXCC, QString& Band, QString& Trafiksätt);

/// The call of the spot at hand, and the key it resolves to.
inline QString SpotSignal;
inline QString SpotPrefix;

/// Blue for what belongs to the call in the form, the plain colours of the window otherwise.
void FärgaEtikett(QLabel* etikett, bool blå);
