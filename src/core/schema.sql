-- The tables of the database file. The screens see to it that keys are unique and that what a row points to exists;
-- the indexes are there so that a statement costs what the rows it touches cost.

CREATE TABLE 要因 (
    要因番号 INTEGER,
    要因区分 INTEGER,
    要因名 TEXT,
    要因内容 TEXT
);
CREATE INDEX 要因_番号 ON 要因 (要因番号);
CREATE INDEX 要因_区分 ON 要因 (要因区分, 要因番号);

CREATE TABLE 評価者 (
    評価者番号 INTEGER,
    評価者氏名 TEXT,
    所属部門 TEXT
);
CREATE INDEX 評価者_番号 ON 評価者 (評価者番号);

CREATE TABLE 課題 (
    課題番号 INTEGER,
    課題区分 INTEGER,
    構成レベル INTEGER,
    最大分岐数 INTEGER,
    比較回数 INTEGER
);
CREATE INDEX 課題_番号 ON 課題 (課題番号);

CREATE TABLE 課題評価者 (
    課題番号 INTEGER,
    評価者番号 INTEGER,
    役割 TEXT
);
CREATE INDEX 課題評価者_番号 ON 課題評価者 (課題番号, 評価者番号);

CREATE TABLE 要因構成 (
    課題番号 INTEGER,
    親要因番号 INTEGER,
    子要因番号 INTEGER,
    子要因表示順 INTEGER,
    子作成済 TEXT
);
CREATE INDEX 要因構成_親 ON 要因構成 (課題番号, 親要因番号, 子要因表示順);
CREATE INDEX 要因構成_課題の子 ON 要因構成 (課題番号, 子要因番号);
-- A saved parent is marked as such in every problem at once.
CREATE INDEX 要因構成_子 ON 要因構成 (子要因番号);

CREATE TABLE 構成表示 (
    課題番号 INTEGER,
    親レベル INTEGER,
    親シーケンス INTEGER,
    親要因番号 INTEGER,
    子レベル INTEGER,
    子シーケンス INTEGER,
    子要因番号 INTEGER,
    子要因表示順 INTEGER,
    子作成済 TEXT
);
CREATE INDEX 構成表示_課題 ON 構成表示 (課題番号, 親レベル, 親シーケンス, 子レベル, 子シーケンス);
CREATE INDEX 構成表示_子レベル ON 構成表示 (子レベル, 親レベル, 親シーケンス, 子シーケンス);

-- 比較日付 is text, "yyyy/mm/dd".
CREATE TABLE 一対比較 (
    課題番号 INTEGER,
    目的要因番号 INTEGER,
    比較元要因番号 INTEGER,
    比較対象要因番号 INTEGER,
    評価者番号 INTEGER,
    比較回数 INTEGER,
    比較日付 TEXT,
    比較表示順 INTEGER,
    比較値 REAL
);
CREATE INDEX 一対比較_評価者 ON 一対比較 (課題番号, 比較回数, 評価者番号, 目的要因番号, 比較表示順);

CREATE TABLE 評価結果 (
    課題番号 INTEGER,
    親要因番号 INTEGER,
    子要因番号 INTEGER,
    評価者番号 INTEGER,
    比較回数 INTEGER,
    評価値 REAL,
    レベル INTEGER,
    総合評価値 REAL
);
CREATE INDEX 評価結果_評価者 ON 評価結果 (課題番号, 比較回数, 評価者番号, 親要因番号, 子要因番号);
-- Of the overall weights only: the other levels are asked for evaluator by evaluator, and an index of theirs would draw
-- the engine through the rows of all of them.
CREATE INDEX 評価結果_総合 ON 評価結果 (課題番号, 比較回数, 子要因番号) WHERE レベル = 2;
CREATE INDEX 評価結果_親子 ON 評価結果 (課題番号, 比較回数, 親要因番号, 子要因番号);

CREATE TABLE 総合係数 (
    課題番号 INTEGER,
    要因番号 INTEGER,
    係数値 REAL
);
CREATE INDEX 総合係数_課題 ON 総合係数 (課題番号, 要因番号);

-- Work tables. A hierarchy key grows with the power of the depth: dno and work2 go over to floating numbers when a key
-- no longer fits a whole one.
CREATE TABLE tempfac (
    parent INTEGER,
    child INTEGER,
    seq INTEGER,
    lev INTEGER,
    dno NUMERIC,
    score REAL,
    score2 REAL,
    long2 INTEGER,
    long3 INTEGER
);
CREATE INDEX tempfac_lev ON tempfac (lev, child);
CREATE INDEX tempfac_dno ON tempfac (dno, child, score DESC);

CREATE TABLE workfac (
    factor INTEGER,
    work1 INTEGER,
    work2 NUMERIC
);
CREATE INDEX workfac_factor ON workfac (factor, work1);
CREATE INDEX workfac_work2 ON workfac (work2);

-- Older databases come here by the steps of DatabaseVersion.
PRAGMA user_version = 1;
