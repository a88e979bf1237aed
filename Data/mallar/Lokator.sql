-- Locator memory (Lokator.dat) and its empty copy (Lokator.hdb).

CREATE TABLE Lokator (
    "Signal" TEXT,
    "Lokator" TEXT
);
