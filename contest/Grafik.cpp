#include "contest/Grafik.h"

#include "platform/paths.h"

QPixmap KartBild() { return QPixmap(platform::DataPath(QStringLiteral("Bilder/Karta.png"))); }
