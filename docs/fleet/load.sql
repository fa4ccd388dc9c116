-- Makes fleet.db of the reports below the current folder, one folder a collection:
--   spring/mac-0001.json, spring/mac-0002.json, ..., autumn/mac-0001.json, ...
--   sqlite3 fleet.db < load.sql

BEGIN;

CREATE TABLE macs (
    id INTEGER PRIMARY KEY,
    collection TEXT NOT NULL,
    name TEXT NOT NULL,
    generatedAt TEXT NOT NULL,
    UNIQUE (collection, name)
);

CREATE TABLE objects (
    id INTEGER PRIMARY KEY,
    mac INTEGER NOT NULL REFERENCES macs,
    name TEXT NOT NULL,
    kind TEXT NOT NULL,
    status TEXT NOT NULL,
    urgency TEXT NOT NULL, -- worked out below
    hidesIntel INTEGER NOT NULL,
    product TEXT NOT NULL, -- the bundle identifier, or the name of what has none
    bundleIdentifier TEXT,
    version TEXT,
    vendor TEXT,
    teamIdentifier TEXT,
    sizeBytes INTEGER,
    path TEXT NOT NULL -- "~" for the home, so that no account is named
);

CREATE TABLE components (
    object INTEGER NOT NULL REFERENCES objects,
    path TEXT NOT NULL
);

-- What a broken connection left behind is no report and must not pass for one.
CREATE TEMP TABLE files AS
    SELECT name AS file, CAST(data AS TEXT) AS report
    FROM fsdir('.')
    WHERE name GLOB './*/*.json';

CREATE TABLE refused AS
    SELECT file FROM files
    WHERE NOT json_valid(report) OR json_extract(report, '$.tool') IS NOT 'Veridane';

INSERT INTO macs (collection, name, generatedAt)
    SELECT substr(file, 3, instr(substr(file, 3), '/') - 1),
           replace(substr(file, 3 + instr(substr(file, 3), '/')), '.json', ''),
           json_extract(report, '$.generatedAt')
    FROM files
    WHERE file NOT IN (SELECT file FROM refused)
    ORDER BY file;

CREATE TEMP TABLE items AS
    SELECT macs.id AS mac, item.value AS item
    FROM macs
    JOIN files ON file = './' || collection || '/' || name || '.json'
    JOIN json_each(report, '$.items') AS item
    ORDER BY macs.id, item.key;

INSERT INTO objects
    SELECT rowid, mac, item ->> 'name', item ->> 'kind', item ->> 'status', '',
           item ->> 'hasHiddenRosettaDependency',
           coalesce(item ->> 'bundleIdentifier', item ->> 'name'), item ->> 'bundleIdentifier',
           item ->> 'version', item ->> 'vendor', item ->> 'teamIdentifier', item ->> 'sizeBytes',
           iif(item ->> 'path' GLOB '/Users/*/*' AND item ->> 'path' NOT GLOB '/Users/Shared/*',
               '~' || substr(item ->> 'path', 7 + instr(substr(item ->> 'path', 8), '/')),
               item ->> 'path')
    FROM items;

INSERT INTO components
    SELECT items.rowid, part.value FROM items, json_each(item, '$.intelComponents') AS part;

CREATE INDEX objectsOfMac ON objects (mac, status);
CREATE INDEX objectsOfProduct ON objects (product, status);
CREATE INDEX componentsOfObject ON components (object);

-- The judgement that the summary shows. A twin has the same identifier, or the same name and kind.
UPDATE objects SET urgency = CASE status
    WHEN 'native' THEN iif(hidesIntel, 'partiallyAffected', 'ready')
    WHEN 'needsRosetta' THEN iif(
        EXISTS (SELECT 1 FROM objects AS twin
                WHERE twin.mac = objects.mac AND twin.status = 'native'
                  AND (twin.bundleIdentifier = objects.bundleIdentifier
                       OR (lower(twin.name) = lower(objects.name) AND twin.kind = objects.kind))),
        'switchToNative', 'breaksOnMacOS28')
    WHEN 'incompatible' THEN 'alreadyBroken'
    ELSE 'unknown' END;

CREATE VIEW work AS -- what needs somebody before macOS 28
    SELECT objects.*, macs.collection
    FROM objects JOIN macs ON macs.id = mac
    WHERE urgency IN ('breaksOnMacOS28', 'partiallyAffected');

COMMIT;

SELECT collection, count(*) AS reports,
       (SELECT count(*) FROM objects JOIN macs AS m ON m.id = mac
        WHERE m.collection = macs.collection) AS objects
FROM macs GROUP BY collection ORDER BY min(generatedAt);
SELECT 'refused: ' || file FROM refused ORDER BY file;
