-- Names of friends (Friend.dat) and the empty copy (Friend.hdb).

CREATE TABLE Friend (
    "Signal" TEXT,
    "Namn" TEXT
);
