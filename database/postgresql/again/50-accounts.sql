-- The accounts of users. A login is a role of the server, with the name exactly as written; its rights come from the
-- groups that set_account gives it. Whoever calls these needs the right to make roles.

-- May this role be an account? One that may do more than use a database may not: it would lose rights, or keep them.
create or replace function kelvane.require_account_name(login_name text) returns void language plpgsql as $$
begin
    if coalesce(login_name, '') = '' or login_name <> btrim(login_name) or octet_length(login_name) > 63 then
        raise exception 'a login has a name of 1 to 63 bytes, without blanks at its ends';
    end if;
    if login_name ~ '^(kelvane|pg)_' or lower(login_name) in ('public', 'none', 'postgres') then
        raise exception 'the name "%" is reserved', login_name;
    end if;
    if exists (
        select from pg_roles
        where rolname = login_name
            and (rolsuper or rolcreaterole or rolcreatedb or rolreplication or rolbypassrls or not rolcanlogin))
    then
        raise exception 'the role "%" is no login for a workstation: it administers the server, or is a group', login_name;
    end if;
end $$;

-- The groups that an account is in, sorted.
create or replace function kelvane.groups_of(login_name text) returns text[] language sql stable as $$
    select coalesce(array_agg(pg_get_userbyid(roleid)::text order by pg_get_userbyid(roleid)::text), '{}')
    from pg_auth_members
    where member = (select oid from pg_roles where rolname = login_name)
        and pg_get_userbyid(roleid) ~ '^kelvane_(login|level_.*|reads_.*|records_.*)$';
$$;

-- The groups that a user of an owner and a level belongs in, sorted; without an owner, those of somebody who may connect.
create or replace function kelvane.groups_for(owner_name text, user_level integer) returns text[]
language sql immutable as $$
    select array_agg(name order by name)
    from (
        values ('kelvane_login'),
            (case when user_level is not null then 'kelvane_level_' || least(user_level, 7) end),
            ('kelvane_reads_' || lower(owner_name)),
            (case when user_level not in (0, 6) then 'kelvane_records_' || lower(owner_name) end)
    ) as groups (name)
    where name is not null;
$$;

create or replace function kelvane.set_groups(login_name text, wanted text[]) returns void language plpgsql as $$
declare
    present text[] := kelvane.groups_of(login_name);
    name text;
begin
    foreach name in array present loop
        if name <> all (wanted) then
            perform kelvane.change_roles(format('revoke %I from %I', name, login_name));
        end if;
    end loop;
    foreach name in array wanted loop
        if name <> all (present) then
            perform kelvane.change_roles(format('grant %I to %I', name, login_name));
        end if;
    end loop;
end $$;

-- Makes an account, or gives one another owner or level. True when the login is a new one, which has no password yet.
-- "MT" is the owner account: it has level 6 and no row of its own. Without owner and level the login may connect and is
-- no user.
create or replace function kelvane.set_account(login_name text, owner_name text, user_level integer) returns boolean
language plpgsql
    set search_path = pg_catalog, dialect
as $$
declare
    is_new boolean;
    is_mt boolean := upper(login_name) = 'MT';
    other text;
begin
    perform kelvane.require_account_name(login_name);
    if is_mt then
        if lower(coalesce(owner_name, 'mt')) <> 'mt' or coalesce(user_level, 6) <> 6 then
            raise exception 'the owner account "%" has the owner MT and level 6', login_name;
        end if;
        owner_name := 'MT';
        user_level := 6;
    elsif owner_name is not null or user_level is not null then
        if not exists (select from kelvane.owners where name = lower(owner_name)) then
            raise exception 'there is no owner "%"; upgrade.sh --owner=NAME adds one', owner_name;
        end if;
        if user_level is null or user_level not between 0 and 32767 then
            raise exception 'a level is a number from 0 to 32767';
        end if;
    end if;
    select mtuser into other from mt.userlist where mtuser = login_name::citext and mtuser::text <> login_name;
    if found then
        raise exception 'there is a user "%" already, whose name differs in case only', other;
    end if;

    is_new := not exists (select from pg_roles where rolname = login_name);
    if is_new then
        perform kelvane.change_roles(format('create role %I login', login_name));
        perform kelvane.change_roles(format('comment on role %I is %L', login_name, 'Kelvane'));
    end if;
    if is_mt or owner_name is null then
        delete from mt.userlist where mtuser = login_name::citext;
    else
        insert into mt.userlist (mtuser, i4240, mtlevel) values (login_name, owner_name, user_level)
        on conflict (mtuser) do update set i4240 = excluded.i4240, mtlevel = excluded.mtlevel
        where (userlist.i4240, userlist.mtlevel) is distinct from (excluded.i4240, excluded.mtlevel);
    end if;
    perform kelvane.set_groups(login_name, kelvane.groups_for(owner_name, user_level));
    return is_new;
end $$;

-- Sets the password of an account. A verifier ("SCRAM-SHA-256$...") keeps it from the server and its logs. What goes wrong
-- is told without the statement, which has the password in it.
create or replace function kelvane.set_password(login_name text, password_or_verifier text) returns void
language plpgsql as $$
begin
    perform kelvane.require_account_name(login_name);
    if 'kelvane_login' <> all (kelvane.groups_of(login_name)) then
        raise exception 'there is no account "%"', login_name;
    end if;
    if coalesce(password_or_verifier, '') = '' then
        raise exception 'a password is not empty';
    end if;
    begin
        perform kelvane.change_roles(format('alter role %I password %L', login_name, password_or_verifier));
    exception when others then
        raise exception 'the password of "%" can''t be set (%)', login_name, sqlstate;
    end;
end $$;

-- Takes an account away. A login that set_account has made goes; any other one only leaves the groups.
create or replace function kelvane.remove_account(login_name text) returns void language plpgsql
    set search_path = pg_catalog, dialect
as $$
begin
    perform kelvane.require_account_name(login_name);
    delete from mt.userlist where mtuser::text = login_name;
    if not found and 'kelvane_login' <> all (kelvane.groups_of(login_name)) then
        raise exception 'there is no account "%"', login_name;
    end if;
    perform kelvane.set_groups(login_name, '{}');
    if exists (
        select from pg_roles where rolname = login_name and shobj_description(oid, 'pg_authid') = 'Kelvane')
    then
        perform kelvane.change_roles(format('drop role %I', login_name));
    end if;
end $$;

-- Each login with the groups that it is in and those that it belongs in; the latter are null for one that is no user.
create or replace view kelvane.logins (name, present, expected) as
select rolname::text, present,
    case
        when upper(rolname) <> 'MT' then (
            select kelvane.groups_for(i4240, mtlevel) from mt.userlist where mtuser::text = rolname::text)
        when present <> '{}' then kelvane.groups_for('MT', 6)
    end
from pg_roles
cross join lateral kelvane.groups_of(rolname::text) as present
where rolcanlogin;

-- Logins that may do more than connect, and are no users: neither here nor among those of other databases, which are given
-- as lines, each a JSON array of names.
create or replace function kelvane.logins_of_nobody(elsewhere text) returns table (login_name text, groups text[])
language sql stable as $$
    select name, present
    from kelvane.logins
    where expected is null and present <> '{}' and present <> '{kelvane_login}' and name not in (
        select jsonb_array_elements_text(line::jsonb)
        from regexp_split_to_table(nullif(elsewhere, ''), E'\n') as line)
    order by name
$$;

-- Makes the logins that the users of a database that was put back lack, and names them. In the place of an earlier database
-- the users' levels count for the other logins too. Beside it these stay as they are: they serve the earlier one.
drop function if exists kelvane.restore_accounts();
create or replace function kelvane.restore_accounts(in_place boolean) returns setof text language plpgsql as $$
declare
    account record;
begin
    for account in
        select mtuser::text as name, i4240, mtlevel
        from mt.userlist
        where in_place or mtuser::text not in (select rolname::text from pg_roles)
        order by 1
    loop
        begin
            if kelvane.set_account(account.name, account.i4240, account.mtlevel) then
                return next account.name;
            end if;
        exception when raise_exception then
            raise warning 'the account "%" is left as it is: %', account.name, sqlerrm;
        end;
    end loop;
end $$;

-- The last of these steps: nobody but the owner may call the functions that they have made.
select kelvane.grant_again();
