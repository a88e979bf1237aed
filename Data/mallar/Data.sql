-- Country reference; the rows come from Prefix.csv. The index is what refuses a second row for a key.

CREATE TABLE Prefix (
    "Prefix" TEXT,
    "Land" TEXT,
    "DXCC" TEXT,
    "Kontinent" TEXT,
    "Tid" TEXT,
    "ITU" TEXT,
    "Zon" TEXT,
    "Kod" TEXT,
    "Lokator" TEXT
);

CREATE UNIQUE INDEX PrefixNyckel ON Prefix ("Prefix");
