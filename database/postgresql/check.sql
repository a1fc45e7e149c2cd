-- Names what is wrong with a database. All of it is undone at the end.

\set QUIET on
\pset tuples_only on
\pset format unaligned
begin;
-- The view that looks at the parts may be missing itself.
\o /dev/null
\i :parts
\o

select case
    when present.definition is null then
        format('missing: %s %s', kind, case when name = '' then relation else concat(relation, '.', name) end)
    else format('not as in a new database: %s.%s', relation, name)
end
from kelvane.parts as expected
left join kelvane.parts_present as present using (kind, relation, name)
where expected.definition is distinct from present.definition
    and not (present.definition is null and expected.kind <> 'table' and exists (
        select from kelvane.parts as whole
        where whole.kind = 'table' and whole.relation = expected.relation and to_regclass(whole.relation) is null))
order by expected.number;

-- What follows needs the parts of the workstation's own.
select not exists (
    select from kelvane.parts
    left join kelvane.parts_present as present using (kind, relation, name)
    where parts.kind in ('view', 'function') and present.definition is null
) and to_regclass('mt.userlist') is not null as whole \gset
\if :whole

select format('missing: the right of %s to %s on %s', role, verb, concat(object, '.' || column_name))
from (table kelvane.rights_expected except table kelvane.rights_present) as missing
order by 1;
select format('too much: the right of %s to %s on %s', role, verb, concat(object, '.' || column_name))
from (table kelvane.rights_present except table kelvane.rights_expected) as surplus
order by 1;

select format('too much: everybody may store large objects (%s); the administrator of the server can revoke it',
    string_agg(name, ', ' order by name))
from kelvane.open_stores
having count(*) > 0;

select format('the login "%s" is not in the groups of its user: %s instead of %s', name, present, expected)
from kelvane.logins
where present <> expected
order by 1;
select format('the login "%s" has rights and is no user: %s', login_name, groups)
from kelvane.logins_of_nobody(:'elsewhere');
select format('the login "%s" may do anything on the server', rolname)
from pg_roles
where 'kelvane_login' = any (kelvane.groups_of(rolname)) and (rolsuper or rolcreaterole or rolcreatedb or rolbypassrls)
order by 1;

create function pg_temp.wrong_rows() returns setof text language plpgsql as $$
declare
    owner record;
begin
    for owner in
        select name
        from kelvane.owners
        where to_regclass(name || '.inventory') is not null and to_regclass(name || '.calibration') is not null
        order by first_ctag
    loop
        return query execute replace($query$
            select format('the numbers of OWNER.calibration go on behind %s, and %s is there already', last_value, greatest)
            from (select max(ctag) as greatest from OWNER.calibration) as present,
                lateral (select pg_get_serial_sequence('OWNER.calibration', 'ctag')::regclass as sequence) as numbering,
                lateral (select coalesce(pg_sequence_last_value(sequence), 0) as last_value) as reached
            where greatest > last_value and greatest >= (select first_ctag from kelvane.owners where name = 'OWNER')
            union all
            (select format('OWNER.calibration: %s records of asset %s have the mark of the current one', count(*), mtag)
            from OWNER.calibration
            where c2339 = '1'
            group by mtag
            having count(*) > 1
            order by mtag)
            union all
            (select format('OWNER.calibration: record %s is of asset %s, which is not in the inventory', ctag, mtag)
            from OWNER.calibration
            where mtag not in (select mtag from OWNER.inventory)
            order by ctag)
        $query$, 'OWNER', owner.name);
    end loop;
end $$;
select * from pg_temp.wrong_rows();

create temp table records on commit drop as select 0 as ctag limit 0;
select format('insert into pg_temp.records select ctag from %I.calibration', name)
from kelvane.owners
where to_regclass(name || '.calibration') is not null
\gexec
select to_regclass('mt.standards') is not null and to_regclass('mt.calresults') is not null as children,
    to_regclass('mt.hvm_kv_task_assets') is not null and to_regclass('mt.hvm_kv_task_packages') is not null as members \gset
\if :children
select format('mt.%s: %s rows are of record %s, which is not there', relation, count(*), coalesce(ctag::text, 'null'))
from (
    select 'standards' as relation, ctag from mt.standards
    union all
    select 'calresults', ctag from mt.calresults
) as children
where not exists (select from pg_temp.records where records.ctag = children.ctag)
group by relation, ctag
order by relation, ctag;
\endif
\if :members
select format('mt.hvm_kv_task_assets: %s rows are of package %s, which is not there', count(*), tptag)
from mt.hvm_kv_task_assets
where tptag not in (select tptag from mt.hvm_kv_task_packages)
group by tptag
order by tptag;
\endif

\endif
rollback;
