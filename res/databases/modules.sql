-- The catalogue of modules. Its rows are in modules.tsv.
PRAGMA page_size = 4096;
PRAGMA encoding = 'UTF-8';

CREATE TABLE Modules (
    _id INTEGER PRIMARY KEY,
    Description TEXT,
    Isc REAL,
    Voc REAL,
    Imp REAL,
    Vmp REAL,
    alpha REAL,
    beta REAL,
    delta REAL,
    Rs REAL,
    UserModule INTEGER DEFAULT 0,
    Favourite INTEGER DEFAULT 0);
