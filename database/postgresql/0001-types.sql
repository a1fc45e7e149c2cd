-- What the tables are made of. A column's kind, which the catalogue views tell, is its domain's name: several kinds are
-- stored alike. A date, time or number that the workstation could not have written is refused.

create schema dialect;
create schema sys;
create extension citext schema dialect;

create domain sys."SMALLINT" as integer;
create domain sys."INTEGER" as integer;
create domain sys."FLOAT" as double precision check (value not in ('NaN', 'Infinity', '-Infinity'));
create domain sys."DOUBLE" as double precision check (value not in ('NaN', 'Infinity', '-Infinity'));
create domain sys."DATE" as date check (value between '0001-01-01' and '9999-12-31');
create domain sys."TIME" as time(0) check (value < '24:00');
create domain sys."TIMESTAMP" as timestamp(0) check (value between '0001-01-01' and '9999-12-31 23:59:59');
create domain sys."CHAR" as text;
create domain sys."VARCHAR" as text;
create domain sys."LONG VARCHAR" as text;

-- Owners of inventories and records; each has a schema of this name.
create table kelvane.owners (
    name       text primary key,
    first_ctag integer not null unique
);

-- What the steps have made, each part with the statement that makes it again (again/parts.sql).
create table kelvane.parts (
    kind       text not null,
    relation   text not null,
    name       text not null,
    definition text not null,
    number     integer generated always as identity,
    primary key (kind, relation, name)
);
