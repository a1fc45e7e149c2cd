-- kelvane.db: the logins. The engine has none of its own, so names and yescrypt hashes of the passwords stand here.

create table if not exists accounts (
    name text primary key collate nocase,
    hash text not null
) strict;
