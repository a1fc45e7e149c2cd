-- The catalogue that tells what kind of value a column holds.

create or replace view sys.sysdomain (domain_id, domain_name) as
values (1, 'SMALLINT'), (2, 'INTEGER'), (3, 'NUMERIC'), (4, 'FLOAT'), (5, 'DOUBLE'), (6, 'DATE'), (7, 'CHAR'),
    (8, 'VARCHAR'), (9, 'LONG VARCHAR'), (10, 'BINARY'), (11, 'LONG BINARY'), (12, 'TIMESTAMP'), (13, 'TIME'),
    (14, 'TINYINT');

-- A column that a site has added may have a type of the server's.
create or replace view sys.syscolumn (domain_id, column_name) as
select distinct kind.domain_id, attribute.attname::text::dialect.citext
from pg_catalog.pg_class as relation
join pg_catalog.pg_namespace as space on space.oid = relation.relnamespace
join pg_catalog.pg_attribute as attribute on attribute.attrelid = relation.oid
join pg_catalog.pg_type as type on type.oid = attribute.atttypid
join sys.sysdomain as kind on kind.domain_name = case
    when type.typnamespace = 'sys'::pg_catalog.regnamespace then type.typname
    else case type.typname
        when 'int2' then 'SMALLINT'
        when 'int4' then 'INTEGER'
        when 'int8' then 'NUMERIC'
        when 'numeric' then 'NUMERIC'
        when 'float4' then 'FLOAT'
        when 'float8' then 'DOUBLE'
        when 'date' then 'DATE'
        when 'time' then 'TIME'
        when 'timestamp' then 'TIMESTAMP'
        when 'timestamptz' then 'TIMESTAMP'
        when 'bpchar' then 'CHAR'
        when 'bytea' then 'LONG BINARY'
        else 'VARCHAR'
    end
end
where space.nspname in (select name from kelvane.owners) and relation.relkind in ('r', 'p') and attribute.attnum > 0
    and not attribute.attisdropped;
