#pragma once

#include <QString>

#include <functional>

class QWidget;

/// Copies a folder with everything in it.
void KopieraMapp(const QString& från, const QString& till);

/// Runs once a window of the class is on screen and in its own event loop.
void NärFönsterSyns(const QByteArray& klass, const std::function<void(QWidget*)>& gör, int försök = 2000);

/// Lets the two seconds of the next splash pass at once.
void HoppaÖverSplash();
