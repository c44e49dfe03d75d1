-- Lets a person in: psql -v cabinet=martin -v personne=marie -v role=secretaire -f personne.sql
-- role: proprietaire, secretaire or lecture. The password comes afterwards: \password marie
\set ON_ERROR_STOP on
\set groupe :cabinet _ :role
CREATE ROLE :"personne" LOGIN IN ROLE :"groupe";
-- What an owner makes belongs to all owners, and to the rights given beforehand.
SELECT format('ALTER ROLE %I IN DATABASE %I SET role = %L', :'personne', :'cabinet', :'groupe')
WHERE :'role' = 'proprietaire' \gexec
