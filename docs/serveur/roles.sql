-- Makes the database of a practice and its three roles, once, by the server's administrator:
--     psql -v cabinet=martin -f roles.sql
-- martin_proprietaire makes and upgrades the book, martin_secretaire writes in it, martin_lecture reads it.
-- People are members of one of them (see serveur.md). Nobody else on the server may open the database.
\set ON_ERROR_STOP on
\set proprietaire :cabinet _proprietaire
\set secretaire :cabinet _secretaire
\set lecture :cabinet _lecture

CREATE ROLE :"proprietaire" NOLOGIN;
CREATE ROLE :"secretaire" NOLOGIN;
CREATE ROLE :"lecture" NOLOGIN;
CREATE DATABASE :"cabinet" OWNER :"proprietaire" TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C.UTF-8';
REVOKE ALL ON DATABASE :"cabinet" FROM PUBLIC;
GRANT CONNECT ON DATABASE :"cabinet" TO :"secretaire", :"lecture";
-- A desk that went away in the middle of a booking gives its place back.
ALTER DATABASE :"cabinet" SET idle_in_transaction_session_timeout = '30s';

\connect :"cabinet"
-- What the owner will make, the others may use from the start.
ALTER DEFAULT PRIVILEGES FOR ROLE :"proprietaire" GRANT USAGE ON SCHEMAS TO :"secretaire", :"lecture";
ALTER DEFAULT PRIVILEGES FOR ROLE :"proprietaire" GRANT SELECT, INSERT, UPDATE, DELETE ON TABLES TO :"secretaire";
ALTER DEFAULT PRIVILEGES FOR ROLE :"proprietaire" GRANT USAGE ON SEQUENCES TO :"secretaire";
ALTER DEFAULT PRIVILEGES FOR ROLE :"proprietaire" GRANT SELECT ON TABLES TO :"lecture";
REVOKE ALL ON SCHEMA public FROM PUBLIC;
