-- Spot store, and its empty copy DXS that clears it.

CREATE TABLE DXSpottLogg (
    "Datum" TEXT,
    "Tid" TEXT,
    "Signal" TEXT,
    "Frekvens" TEXT,
    "DXBand" TEXT,
    "Trafiksätt" TEXT,
    "Notering" TEXT,
    "Prefix" TEXT,
    "Spott Tid" TEXT
);
