-- A new calibration is the asset's current one. The mark leaves the earlier one first, so that a record that brings its
-- own mark doesn't meet it. Who may insert a record need not be allowed to change one. The lock lets a second insert for
-- the asset wait until the first is over: only then does it see which record has the mark.
create or replace function kelvane.mark_current() returns trigger language plpgsql security definer
    set search_path = pg_catalog, pg_temp
as $$
begin
    perform pg_advisory_xact_lock(hashtextextended(format('current calibration %s.%s', tg_table_schema, new.mtag), 0));
    execute format('update %I.calibration set c2339 = null where mtag = $1 and c2339 = ''1''', tg_table_schema)
        using new.mtag;
    new.c2339 := '1';
    return new;
end $$;

do $$
declare
    owner text;
begin
    for owner in select name from kelvane.owners loop
        if to_regclass(owner || '.calibration') is not null and not exists (
            select from pg_trigger
            where tgrelid = to_regclass(owner || '.calibration') and tgname = 'calibration_marks_new' and tgenabled = 'O')
        then
            execute format('create or replace trigger calibration_marks_new before insert on %I.calibration '
                'for each row execute function kelvane.mark_current()', owner);
            execute format('alter table %I.calibration enable trigger calibration_marks_new', owner);
        end if;
    end loop;
end $$;
