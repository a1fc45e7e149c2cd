-- Who may do what. The server knows a right by role, object, column and verb; the rights that the workstation's
-- statements need are listed here, compared with those that there are, and the difference is granted or revoked.
--
--   kelvane_login            whoever may connect
--   kelvane_level_0 to _7    the level of a user; 7 stands for any above 6
--   kelvane_reads_<owner>    users of an owner
--   kelvane_records_<owner>  users of an owner who write calibration records

-- Roles belong to the whole server: another database may be making or changing the same one. Then this waits, and finds
-- it done or changed in between.
create or replace function kelvane.change_roles(statement text) returns void language plpgsql as $$
begin
    for attempt in 1 .. 100 loop
        begin
            execute statement;
            return;
        exception
            when duplicate_object or unique_violation then
                return;
            when internal_error then -- "tuple concurrently updated"
                if attempt = 100 then
                    raise exception '%', sqlerrm;
                end if;
        end;
        perform pg_sleep(0.01);
    end loop;
end $$;

create or replace function kelvane.make_group(role_name text) returns void language plpgsql as $$
begin
    if not exists (select from pg_roles where rolname = role_name) then
        perform kelvane.change_roles(format('create role %I nologin', role_name));
    end if;
end $$;

create or replace function kelvane.make_groups() returns void language sql as $$
    select kelvane.make_group(name)
    from (
        select 'kelvane_level_' || level from generate_series(0, 7) as level
        union all
        select 'kelvane_login'
        union all
        select right_of || name from kelvane.owners, (values ('kelvane_reads_'), ('kelvane_records_')) as rights (right_of)
    ) as groups (name)
    order by name;
$$;

select kelvane.make_groups();

-- What the menu lets a level do. `edits` follows the site's setting.
create or replace view kelvane.levels (level, role, downloads, uploads, edits, configures) as
select level, 'kelvane_level_' || level, level <> 6, level not in (0, 6),
    level between 1 and 5 and coalesce(level >= (select max(procedit) from mt.dbconfig), false), level = 6
from generate_series(0, 7) as level;

-- Columns of an inventory that making a record may change: two that it empties, and those to which the field dictionary
-- copies.
create or replace view kelvane.copied_columns (name) as
values ('i4224'), ('i4225')
union
select case when dcopy like '42%' then 'i' || dcopy else lower(dcopy) end
from mt.customiz
where fldnum like '23%' and fldnum <> '2340' and (dcopy like '42%' or dcopy ilike 'i4%');

-- Each statement of the workstation that changes the tables that all owners share. The sweep at the login is everybody's;
-- 45-deleted-rows.sql says which rows it may take.
create or replace view kelvane.statements (granted, relation, verb, columns) as
values
    ('everybody',  'hvm_kv_task_inuse',           'DELETE', null),
    ('everybody',  'hvm_kv_task_standards_inuse', 'DELETE', null),
    ('everybody',  'hvm_kv_task_assets',          'DELETE', null),
    ('everybody',  'hvm_kv_task_packages',        'DELETE', null),
    ('downloads',  'hvm_kv_task_inuse',           'INSERT', null),
    ('downloads',  'hvm_kv_task_standards_inuse', 'INSERT', null),
    ('downloads',  'hvm_kv_last_standards_used',  'INSERT', null),
    ('downloads',  'hvm_kv_last_standards_used',  'DELETE', null),
    ('downloads',  'hvm_kv_task_assets',          'INSERT', null),
    ('downloads',  'hvm_kv_task_packages',        'INSERT', '{taskname,tptype,mtuser,created_on,tptag}'),
    ('uploads',    'standards',                   'INSERT', null),
    ('uploads',    'calresults',                  'INSERT', null),
    ('edits',      'hvm_kv_proc_points',          'INSERT', null),
    ('edits',      'hvm_kv_proc_points',          'UPDATE', '{tp_name}'),
    ('edits',      'hvm_kv_proc_points',          'DELETE', null),
    ('edits',      'hvm_kv_tag_config',           'INSERT', null),
    ('edits',      'hvm_kv_tag_config',           'UPDATE', '{tp_name}'),
    ('edits',      'hvm_kv_tag_config',           'DELETE', null),
    ('edits',      'hvm_kv_prompts',              'INSERT', null),
    ('edits',      'hvm_kv_prompts',              'UPDATE', '{prompt}'),
    ('edits',      'hvm_kv_prompts',              'DELETE', null),
    ('edits',      'hvm_kv_proc_prompts',         'INSERT', null),
    ('edits',      'hvm_kv_proc_prompts',         'DELETE', null),
    ('edits',      'hvm_kv_task_packages',        'INSERT', null),
    ('edits',      'inventory',                   'SELECT', '{mtag,i4201}'),
    ('configures', 'hvm_kv_worksheetfields',      'INSERT', null),
    ('configures', 'hvm_kv_worksheetfields',      'DELETE', null),
    ('configures', 'hvm_kv_sysconfig',            'INSERT', null),
    ('configures', 'hvm_kv_sysconfig',            'UPDATE', '{allow_ooc_stds,allow_poor_trace_stds}');

-- The tables, and who reads them.
create or replace view kelvane.tables (relation, schema, name, is_owners) as
select class.oid::regclass, nspname, relname,
    nspname <> 'mt' or relname in ('inventory', 'calibration', 'location', 'repair', 'customers')
from pg_class as class
join pg_namespace as space on space.oid = relnamespace
where nspname in (select name from kelvane.owners) and relkind in ('r', 'p', 'v');

create or replace view kelvane.rights_expected (role, kind, object, column_name, verb) as
select 'kelvane_login', 'database', quote_ident(current_database()), null::text, 'CONNECT'
union all
select 'kelvane_login', 'schema', name, null, 'USAGE'
from (values ('mt'), ('dialect'), ('sys'), ('kelvane')) as schemas (name)
union all
select 'kelvane_login', 'table', name, null, 'SELECT'
from (values ('mt.userlist'), ('sys.sysdomain'), ('sys.syscolumn'), ('kelvane.upgrades')) as tables (name)
where to_regclass(name) is not null
union all
select role, 'table', format('%I.%I', schema, name), null, 'SELECT'
from kelvane.levels, kelvane.tables
where not is_owners
union all -- every owner but MT looks for standards in STD
select 'kelvane_reads_' || owners.name, 'schema', schemas.name, null, 'USAGE'
from kelvane.owners
join kelvane.owners as schemas on schemas.name = owners.name or (schemas.name = 'std' and owners.name <> 'mt')
union all
select 'kelvane_reads_' || owners.name, 'table', format('%I.%I', schema, tables.name), null, 'SELECT'
from kelvane.owners
join kelvane.tables on is_owners and (schema = owners.name or (schema = 'std' and owners.name <> 'mt'))
union all
select 'kelvane_records_' || schema, 'table', format('%I.%I', schema, name), attname::text,
    case name when 'calibration' then 'INSERT' else 'UPDATE' end
from kelvane.tables
join pg_attribute on attrelid = relation and attnum > 0 and not attisdropped
where (name = 'calibration' and attname <> 'ctag')
    or (name = 'inventory' and attname in (select copied_columns.name from kelvane.copied_columns))
union all
select role, 'table', format('%I.%I', schema, name), column_name, verb
from kelvane.statements
left join lateral unnest(columns::text[]) as column_name on true
join kelvane.tables on schema = 'mt' and name = statements.relation
join kelvane.levels on case granted
    when 'downloads' then downloads
    when 'uploads' then uploads
    when 'edits' then edits
    when 'configures' then configures
    else true
end;

-- The rights of these roles, and what everybody has who can log in to the server ("public"): nothing.
create or replace view kelvane.rights_present (role, kind, object, column_name, verb) as
with lists (kind, object, column_name, list) as (
    select 'database', quote_ident(datname), null::text, coalesce(datacl, acldefault('d', datdba))
    from pg_database
    where datname = current_database()
    union all
    select 'schema', quote_ident(nspname), null, coalesce(nspacl, acldefault('n', nspowner))
    from pg_namespace
    where nspname in ('public', 'dialect', 'sys', 'kelvane') or nspname in (select name from kelvane.owners)
    union all
    select 'table', format('%I.%I', nspname, relname), null, coalesce(relacl, acldefault('r', relowner))
    from pg_class
    join pg_namespace as space on space.oid = relnamespace
    where relkind in ('r', 'p', 'v') and (nspname in ('sys', 'kelvane') or nspname in (select name from kelvane.owners))
    union all
    select 'table', format('%I.%I', nspname, relname), attname::text, attacl
    from pg_class
    join pg_namespace as space on space.oid = relnamespace
    join pg_attribute on attrelid = pg_class.oid and not attisdropped
    where relkind in ('r', 'p', 'v') and (nspname in ('sys', 'kelvane') or nspname in (select name from kelvane.owners))
    union all
    select 'function', oid::regprocedure::text, null, coalesce(proacl, acldefault('f', proowner))
    from pg_proc
    where pronamespace = 'kelvane'::regnamespace
), rights as (
    select case grantee when 0 then 'public' else pg_get_userbyid(grantee)::text end as role, kind, object, column_name,
        privilege_type as verb
    from lists, aclexplode(list)
)
select role, kind, object, column_name, verb
from rights
where role = 'public' or role ~ '^kelvane_(login|level_.*|reads_.*|records_.*)$';

-- Brings the rights in line with the settings; also for a table or column that a site has added.
create or replace function kelvane.grant_again() returns void language plpgsql
    set search_path = pg_catalog
as $$
declare
    change record;
begin
    perform pg_advisory_xact_lock(hashtextextended('kelvane rights', 0));
    perform kelvane.make_groups();
    -- What is revoked for a table goes for its columns too, so that they may need a second turn.
    for turn in 1 .. 2 loop
        for change in
            select 'revoke' as command, 'from' as link, *
            from (table kelvane.rights_present except table kelvane.rights_expected) as surplus
            union all
            select 'grant', 'to', *
            from (table kelvane.rights_expected except table kelvane.rights_present) as missing
            order by command desc, role, kind, object, column_name
        loop
            execute format('%s %s%s on %s %s %s %I', change.command, change.verb, '(' || quote_ident(change.column_name) || ')',
                change.kind, change.object, change.link, change.role);
        end loop;
    end loop;
end $$;

-- The rights follow the settings by themselves.
create or replace function kelvane.follow_settings() returns trigger language plpgsql security definer
    set search_path = pg_catalog, pg_temp
as $$
begin
    perform kelvane.grant_again();
    return null;
end $$;

do $$
declare
    relation regclass;
begin
    for relation in
        select unnest(array[to_regclass('mt.dbconfig'), to_regclass('mt.customiz')])
        except
        select tgrelid from pg_trigger where tgname = 'rights_follow' and tgenabled = 'O'
    loop
        execute format('create or replace trigger rights_follow after insert or update or delete or truncate on %s '
            'for each statement execute function kelvane.follow_settings()', relation);
        execute format('alter table %s enable trigger rights_follow', relation);
    end loop;
end $$;

-- Everybody could store large objects otherwise; only the server's own administrator can forbid it.
create or replace view kelvane.open_stores (name) as
select proname::text
from pg_proc
where proname in ('lo_creat', 'lo_create', 'lo_from_bytea', 'lowrite', 'lo_put')
    and pronamespace = 'pg_catalog'::regnamespace and has_function_privilege('public', oid, 'execute');

do $$
declare
    routine text;
begin
    if (select rolsuper from pg_roles where rolname = current_user) then
        for routine in select name from kelvane.open_stores loop
            execute format('revoke execute on function pg_catalog.%I from public', routine);
        end loop;
    end if;
end $$;
