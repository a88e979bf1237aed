-- Station settings: always one row. A Swedish station in winter time is where a new user starts:
-- CQ zone 14, ITU zone 18, and an hour to take off local time for UTC.

CREATE TABLE SVDINI (
    "EgenSignal" TEXT,
    "OpSignal" TEXT,
    "OpNamn" TEXT,
    "OpAdress" TEXT,
    "OpPostnr" TEXT,
    "OpPostadr" TEXT,
    "OpEmail" TEXT,
    "OpLand" TEXT,
    "OpITU" TEXT,
    "OpZon" TEXT,
    "OpPrefix" TEXT,
    "OpTestLokator" TEXT,
    "OpUTCTid" TEXT,
    "OpRig" TEXT,
    "OpAntenn" TEXT,
    "OpHöjdHav" TEXT,
    "OpHöjdLand" TEXT,
    "OpKlubbSignal" TEXT,
    "OpTestDatum" TEXT,
    "OpEffekt" TEXT,
    "OpEpost" TEXT,
    "OpEdit" TEXT
);

INSERT INTO SVDINI VALUES (
    '', '', '', '', '', '', '', '', '18', '14', '', '', '-1', '', '', '0', '0', '', '', '', '', ''
);
