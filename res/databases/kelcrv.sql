-- The pristine curve file. Files of this older schema are what users have: the program brings each one up to
-- date when it opens it, and so every new file takes that road, too.
PRAGMA page_size = 1024;
PRAGMA encoding = 'UTF-8';
PRAGMA user_version = 0;

CREATE TABLE Curves (
    CurveID INTEGER PRIMARY KEY,
    CurvePoints TEXT,
    MemLocation INTEGER,
    TestDate INTEGER,
    TesterSerNo TEXT,
    Irradiance REAL,
    AmbientTemp REAL,
    CellTemp REAL,
    Voc REAL,
    Isc REAL,
    Riso REAL,
    Viso REAL,
    Iclamp REAL,
    Rpe REAL,
    FF REAL,
    Vmp REAL,
    Imp REAL,
    STCAlgorithm INTEGER,
    STC_alpha DOUBLE,
    STC_beta DOUBLE,
    STC_delta DOUBLE,
    STC_a DOUBLE,
    STC_b DOUBLE,
    STC_K DOUBLE,
    STC_Rs DOUBLE,
    ModuleID INTEGER,
    ModuleSeries INTEGER,
    ModuleParallel INTEGER);

CREATE TABLE TreeNodes (
    NodeID INTEGER PRIMARY KEY,
    ParentNodeID INTEGER,
    NodeDesc TEXT,
    CurveID INTEGER,
    ParentRow INTEGER,
    Status INTEGER,
    Colour TEXT);

CREATE INDEX idx_treenode_parent ON TreeNodes (ParentNodeID, ParentRow);
CREATE INDEX idx_TreeNodes_CurveID ON TreeNodes (CurveID);
-- The same once more, under another name.
CREATE INDEX IDX_TREENODE_CURVEID ON TreeNodes (CurveID);
