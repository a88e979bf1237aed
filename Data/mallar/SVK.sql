-- Empty contest log: every new log is a copy of the file made from this.
-- All columns are text but the few that are counted with. "Band " has a trailing blank, which
-- every filter and reader of a log spells. TESTDXCC gets one row a country from Prefix.csv.

CREATE TABLE TESTQSO (
    "Datum" TEXT,
    "Tid" TEXT,
    "Signal" TEXT,
    "Frekvens" TEXT,
    "Trafiksätt" TEXT,
    "Band " TEXT,
    "Sänt" TEXT,
    "Mottaget" TEXT,
    "Multiplar" TEXT,
    "LöpNr" TEXT,
    "Namn" TEXT,
    "QTH" TEXT,
    "ITU" TEXT,
    "Zon" TEXT,
    "Diplom" TEXT,
    "DXCC" TEXT,
    "Land" TEXT,
    "Notering" TEXT,
    "Prefix" TEXT,
    "DXCC Nr" TEXT,
    "Poäng" INTEGER,
    "Distrikt" TEXT,
    "NDXCC" TEXT,
    "NRUTA" TEXT,
    "Dubblett" TEXT,
    "Rutor" TEXT,
    "LöpNrSR" TEXT
);

CREATE TABLE TESTDXCC (
    "DXCC" TEXT,
    "Kod" TEXT,
    "160 M" TEXT,
    "80 M" TEXT,
    "40 M" TEXT,
    "30 M" TEXT,
    "20 M" TEXT,
    "17 M" TEXT,
    "15 M" TEXT,
    "12 M" TEXT,
    "10 M" TEXT,
    "6 M" TEXT,
    "2 M" TEXT,
    "70 CM" TEXT,
    "CW" TEXT,
    "SSB" TEXT,
    "AM" TEXT,
    "FM" TEXT,
    "RTTY" TEXT,
    "PSK31" TEXT,
    "PSK" TEXT,
    "SSTV" TEXT
);

CREATE TABLE INFO (
    "Aktuellt_Test" SMALLINT,
    "LöpNr" INTEGER,
    "AktivTid" TEXT,
    "ViloTid" TEXT,
    "LängstaQSOSträng" TEXT,
    "QSOLängd" INTEGER
);

INSERT INTO INFO VALUES (0, 1, '00:00:00', '00:00:00', '', 0);
