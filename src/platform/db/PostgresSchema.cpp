#include "platform/db/PostgresSchema.h"

#include "platform/db/SqlTokens.h"

#include <libpq-fe.h>

namespace {

/// Which expressions the functions stand for is said at SqlDialect; each is written so that the server takes
/// its body in place of the call, or an index would be no help.
/// - ecritures: the key of every transaction that was committed of late, by which one whose answer was lost
///   is found out.
/// - tri: compareTexts() as a key: letters without their accents first, then the text, neither with its case.
/// - seconde, jour, plagerdv: the times of an appointment as numbers, whatever was stored for them; Null
/// where they
///   make no range, which then stands in nobody's way.
constexpr const char *dialect = R"(
CREATE SCHEMA IF NOT EXISTS dialecte;
CREATE COLLATION IF NOT EXISTS dialecte.texte
    (provider = icu, locale = 'fr-u-ks-level2', deterministic = false);
CREATE OR REPLACE FUNCTION dialecte.clng(text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE WHEN $1 IS NULL THEN NULL
        WHEN $1 ~ '^\s*[-+]?[0-9]{1,18}(?![0-9])' THEN substring($1 from '^\s*([-+]?[0-9]+)')::bigint
        WHEN $1 ~ '^\s*[-+]?[0-9]' THEN greatest(least(substring($1 from '^\s*([-+]?[0-9]+)')::numeric,
            9223372036854775807), -9223372036854775808)::bigint
        ELSE 0 END $$;
CREATE OR REPLACE FUNCTION dialecte.clng(bigint) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE
    AS $$ SELECT $1 $$;
CREATE OR REPLACE FUNCTION dialecte.clng(double precision) RETURNS bigint
    LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE WHEN $1 >= 9223372036854775807 THEN 9223372036854775807
        WHEN $1 <= -9223372036854775808 THEN -9223372036854775808 ELSE trunc($1)::bigint END $$;
CREATE OR REPLACE FUNCTION dialecte.cstr(text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE WHEN $1 ~ '^[0-9]{4}-(0[1-9]|1[0-2])-(0[1-9]|[12][0-9]|3[01])$' AND substr($1, 1, 4) <> '0000'
            AND substr($1, 9, 2)::int <= extract(day from make_date(substr($1, 1, 4)::int,
                substr($1, 6, 2)::int, 1) + interval '1 month' - interval '1 day')
        THEN substr($1, 9, 2) || '/' || substr($1, 6, 2) || '/' || substr($1, 1, 4)
        ELSE coalesce($1, '') END $$;
CREATE OR REPLACE FUNCTION dialecte.cstr(bigint) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT coalesce($1::text, '') $$;
CREATE OR REPLACE FUNCTION dialecte.ucase(text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT upper($1 COLLATE "und-x-icu") COLLATE "C" $$;
CREATE OR REPLACE FUNCTION dialecte.ascii(text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT lower($1 COLLATE "C") $$;
CREATE OR REPLACE FUNCTION dialecte.petit(text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT lower($1 COLLATE "und-x-icu") $$;
CREATE OR REPLACE FUNCTION dialecte.lettres(text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT replace(replace(regexp_replace(normalize($1, NFD), '[\u0300-\u036f]', '', 'g'),
        'œ', 'oe'), 'æ', 'ae') $$;
CREATE OR REPLACE FUNCTION dialecte.tri(text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT (CASE WHEN octet_length($1) = char_length($1)
        THEN dialecte.ascii($1) || chr(1) || dialecte.ascii($1)
        ELSE dialecte.lettres(dialecte.petit($1)) || chr(1) || dialecte.petit($1) END) COLLATE "C" $$;
CREATE OR REPLACE FUNCTION dialecte.iif(boolean, anycompatible, anycompatible) RETURNS anycompatible
    LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT CASE WHEN $1 THEN $2 ELSE $3 END $$;
CREATE OR REPLACE FUNCTION dialecte.seconde(text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE WHEN $1 ~ '^(?:[01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]$'
        THEN substr($1, 1, 2)::bigint * 3600 + substr($1, 4, 2)::bigint * 60 + substr($1, 7, 2)::bigint
        ELSE substring($1 from '(?:^|[ T])([01][0-9]|2[0-3]):[0-5][0-9]')::bigint * 3600
        + substring($1 from '(?:^|[ T])[0-9]{2}:([0-5][0-9])')::bigint * 60
        + coalesce(substring($1 from '(?:^|[ T])[0-9]{2}:[0-9]{2}:([0-5][0-9])')::bigint, 0)
        + CASE WHEN $1 ~ '(?:^|[ T])[0-9]{2}:[0-9]{2}:[0-9]{2}\.[5-9]' THEN 1 ELSE 0 END END $$;
CREATE OR REPLACE FUNCTION dialecte.jour(text, text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE WHEN $1 ~ '^[0-9]{4}-[0-9]{2}-[0-9]{2}' THEN replace(substr($1, 1, 10), '-', '')::bigint
        WHEN $2 ~ '^[0-9]{8}$' THEN $2::bigint END $$;
CREATE OR REPLACE FUNCTION dialecte.plagerdv(text, text, text, text) RETURNS int8range
    LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE WHEN dialecte.seconde($3) < dialecte.seconde($4) AND dialecte.jour($1, $2) IS NOT NULL
        THEN int8range(dialecte.jour($1, $2) * 86400 + dialecte.seconde($3),
            dialecte.jour($1, $2) * 86400 + dialecte.seconde($4)) END $$;
CREATE TABLE IF NOT EXISTS dialecte.ecritures
    (cle uuid PRIMARY KEY, quand timestamptz NOT NULL DEFAULT clock_timestamp());
COMMENT ON SCHEMA dialecte IS 'Tavelin 1';
)";

/// Rows of a kind, two names and a number.
constexpr const char *catalogue = R"(
WITH s AS (SELECT oid FROM pg_namespace WHERE nspname = %1),
     t AS (SELECT oid, relname, relkind FROM pg_class WHERE relnamespace = (SELECT oid FROM s))
SELECT 'base' AS sorte, pg_encoding_to_char(encoding)::text AS nom, '' AS champ,
    (NOT pg_is_in_recovery() AND EXISTS (SELECT FROM pg_class AS c JOIN pg_namespace AS n
        ON n.oid = c.relnamespace WHERE n.nspname = 'dialecte' AND c.relname = 'ecritures'
        AND has_schema_privilege(n.oid, 'USAGE') AND has_table_privilege(c.oid, 'INSERT')))::int AS nombre,
    0 AS place FROM pg_database WHERE datname = current_database()
UNION ALL SELECT 'version', '', '', current_setting('server_version_num')::int, 0
UNION ALL SELECT 'dialecte', '', '',
        coalesce(substring(obj_description(oid, 'pg_namespace') from '[0-9]+')::int, 0), 0
    FROM pg_namespace WHERE nspname = 'dialecte'
UNION ALL SELECT 'schema', '', '', has_schema_privilege(oid, 'USAGE')::int, 0 FROM s
UNION ALL SELECT 'table', relname::text, '', (has_table_privilege(oid, 'INSERT')
    AND has_table_privilege(oid, 'UPDATE') AND has_table_privilege(oid, 'DELETE'))::int, 0 FROM t
    WHERE relkind IN ('r', 'p')
UNION ALL SELECT 'champ', relname::text, attname::text, (attidentity <> '' AND EXISTS (SELECT FROM pg_index
        WHERE indrelid = t.oid AND indisprimary AND indkey::text = attnum::text))::int, attnum FROM t
    JOIN pg_attribute ON attrelid = t.oid AND attnum > 0 AND NOT attisdropped
    WHERE relkind IN ('r', 'p', 'v', 'f')
UNION ALL SELECT 'index', relname::text, '', 0, 0 FROM t WHERE relkind = 'i'
UNION ALL SELECT 'contrainte', conname::text, '', 0, 0 FROM pg_constraint
    WHERE connamespace = (SELECT oid FROM s)
UNION ALL SELECT 'contrainte', tgname::text, '', 0, 0 FROM pg_trigger
    JOIN t ON tgrelid = t.oid WHERE NOT tgisinternal
ORDER BY place)";

QString field(const pg_result *result, int row, int column) {
    return QString::fromUtf8(PQgetvalue(result, row, column));
}

} // namespace

QByteArray PostgresCatalogue::query(const QString &schema) {
    return QByteArray(catalogue).replace("%1", quotedText(schema).toUtf8());
}

PostgresCatalogue PostgresCatalogue::of(const pg_result *result) {
    PostgresCatalogue all;
    for (int row = 0; row < PQntuples(result); ++row) {
        const QString kind = field(result, row, 0);
        const QString name = field(result, row, 1);
        const QString part = field(result, row, 2);
        const int number = field(result, row, 3).toInt();
        if (kind == u"base") {
            all.isUtf8 = name == u"UTF8";
            all.isWritable = number == 1;
        } else if (kind == u"version") {
            all.serverVersion = number;
        } else if (kind == u"dialecte") {
            all.dialectVersion = number;
        } else if (kind == u"schema") {
            all.exists = true;
            all.isReadable = number == 1;
        } else if (kind == u"table") {
            all.tables[name].isUpdatable = number == 1;
        } else if (kind == u"index") {
            all.indexes << name;
        } else if (kind == u"contrainte") {
            all.constraints << name;
        } else if (part != rowKeyField && part != oldClashField) {
            all.tables[name].fields << part;
            all.tables[name].key = number == 1 ? part : all.tables[name].key;
        }
    }
    return all;
}

QByteArray dialectStatements() {
    return dialect;
}
