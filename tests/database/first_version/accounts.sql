-- kelvane.db as the first scripts made it, with rows.

create table accounts (
    name text primary key collate nocase,
    hash text not null
) strict;

insert into accounts (name, hash) values ('jdoe', '$y$first'), ('MT', '$y$second');
