-- What a fleet's administrator asks: sqlite3 -box fleet.db < questions.sql
-- Where nothing else is said, they are about the collection that is named here.
CREATE TEMP VIEW here AS
    SELECT objects.*, macs.name AS macName
    FROM objects JOIN macs ON macs.id = mac WHERE collection = 'spring';

.print
.print # How many Macs need something before macOS 28?
SELECT collection, count(*) AS macs,
       sum(id IN (SELECT mac FROM work)) AS "need something",
       sum(id NOT IN (SELECT mac FROM work)) AS "nothing to do"
FROM macs GROUP BY collection ORDER BY min(generatedAt);

.print
.print # Which products need Rosetta 2 on the most Macs?
SELECT product, min(name) AS name, min(kind) AS kind, count(DISTINCT mac) AS macs
FROM here WHERE urgency = 'breaksOnMacOS28'
GROUP BY product ORDER BY macs DESC, product LIMIT 10;

.print
.print # Which of them are native elsewhere in the fleet, so that an update will do?
SELECT product, group_concat(DISTINCT version) FILTER (WHERE status = 'needsRosetta') AS old,
       count(DISTINCT mac) FILTER (WHERE urgency = 'breaksOnMacOS28') AS "Macs to update",
       group_concat(DISTINCT version) FILTER (WHERE status = 'native') AS native,
       count(DISTINCT mac) FILTER (WHERE status = 'native') AS "Macs with it"
FROM here WHERE bundleIdentifier IS NOT NULL
GROUP BY product HAVING "Macs to update" > 0 AND "Macs with it" > 0
ORDER BY "Macs to update" DESC, product LIMIT 10;

.print
.print # Which are native nowhere, so that the maker must be asked, or a replacement found?
SELECT product, min(kind) AS kind, min(vendor) AS vendor, count(DISTINCT mac) AS macs
FROM here WHERE bundleIdentifier IS NOT NULL
GROUP BY product HAVING sum(status = 'native') = 0 AND sum(status = 'needsRosetta') > 0
ORDER BY macs DESC, product LIMIT 10;

.print
.print # Whose software is it?
SELECT teamIdentifier AS team, min(vendor) AS vendor, count(DISTINCT product) AS products,
       count(DISTINCT mac) AS macs, count(*) AS objects
FROM here WHERE urgency IN ('breaksOnMacOS28', 'partiallyAffected')
GROUP BY coalesce(team, vendor) ORDER BY macs DESC, team, vendor LIMIT 10;

.print
.print # Which native applications hide Intel-only parts?
SELECT here.name, components.path AS part, count(DISTINCT mac) AS macs
FROM here JOIN components ON object = here.id WHERE urgency = 'partiallyAffected'
GROUP BY product, part ORDER BY macs DESC, here.name, part LIMIT 10;

.print
.print # Which background services and tools need Rosetta 2?
SELECT kind, name, path, count(DISTINCT mac) AS macs
FROM here
WHERE urgency = 'breaksOnMacOS28' AND kind IN ('launchService', 'commandLineTool')
GROUP BY kind, name, path ORDER BY kind DESC, macs DESC, name, path LIMIT 10;

.print
.print # What runs on none of the Macs any more?
SELECT name, min(version) AS version, min(kind) AS kind, count(DISTINCT mac) AS macs
FROM here WHERE urgency = 'alreadyBroken'
GROUP BY product, name ORDER BY macs DESC, name LIMIT 10;

.print
.print # What is an old copy beside a native one, and can go?
SELECT count(*) AS copies, count(DISTINCT mac) AS macs, count(DISTINCT product) AS products,
       sum(sizeBytes) / 1000000 AS megabytes
FROM here WHERE urgency = 'switchToNative';

.print
.print # Which Macs have the most work?
SELECT macName AS mac, sum(urgency = 'breaksOnMacOS28') AS "need Rosetta 2",
       sum(urgency = 'partiallyAffected') AS "hide Intel parts", count(*) AS objects
FROM here GROUP BY mac
ORDER BY "need Rosetta 2" + "hide Intel parts" DESC, macName LIMIT 10;

.print
.print # Which Macs are ready today?
SELECT count(*) AS ready, min(objects) AS "fewest objects", max(objects) AS "most objects"
FROM (SELECT count(objects.id) AS objects
      FROM macs LEFT JOIN objects ON mac = macs.id
      WHERE macs.collection = 'spring' AND macs.id NOT IN (SELECT mac FROM work)
      GROUP BY macs.id);

.print
.print # What has changed between two collections?
WITH both AS (
    SELECT name FROM macs WHERE collection = 'spring'
    INTERSECT SELECT name FROM macs WHERE collection = 'autumn'
), todo AS (
    SELECT work.collection, macs.name AS mac, product, path
    FROM work JOIN macs ON macs.id = mac WHERE macs.name IN both
), paired AS (
    SELECT mac, product, path, max(collection = 'spring') AS was, max(collection = 'autumn') AS is_
    FROM todo GROUP BY mac, product, path
)
SELECT product, sum(was AND NOT is_) AS settled, sum(is_ AND NOT was) AS new,
       sum(was AND is_) AS "still to do"
FROM paired GROUP BY product HAVING settled + new > 0
ORDER BY settled DESC, product LIMIT 10;

.print
.print # Which Macs have become ready, and which sent no second report?
WITH needy AS (SELECT DISTINCT work.collection, macs.name FROM work JOIN macs ON macs.id = mac)
SELECT sum(name IN (SELECT name FROM needy WHERE collection = 'spring')
           AND name IN (SELECT name FROM macs WHERE collection = 'autumn')
           AND name NOT IN (SELECT name FROM needy WHERE collection = 'autumn')) AS "become ready",
       sum(name NOT IN (SELECT name FROM macs WHERE collection = 'autumn')) AS "not heard of"
FROM macs WHERE collection = 'spring';
