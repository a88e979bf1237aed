#pragma once

#include <QPixmap>

/// The large locator map of frGrid; the main window shows it small.
QPixmap KartBild();
