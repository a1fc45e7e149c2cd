-- Which rows of the task tables a login may delete, whatever program it uses. The sweep at the login takes what is older
-- than 90 days, and members of no package. Who downloads clears what is in use, and takes a list of his own back; who edits
-- deletes any package. The right to insert tells these apart (40-rights.sql), so that they follow the settings too.

-- A policy that is there stays: making it anew would wait for everybody who uses the table. One that has changed needs
-- another name.
do $$
declare
    is_own text := 'tptype = ''WSHT'' and mtuser = current_user';
    is_old text := '%s < dialect.present_moment() - interval ''90 days''';
    may_insert text := '(select has_table_privilege(''%s'', ''insert''))';
    is_removable text := concat_ws(' or ', format(may_insert, 'mt.hvm_kv_task_packages'), format(is_old, 'created_on'),
        format('(%s)', is_own));
    rule record;
begin
    for rule in
        select *
        from (values
            ('mt.hvm_kv_task_inuse',
                concat_ws(' or ', format(may_insert, 'mt.hvm_kv_task_inuse'), format(is_old, 'entered_date'))),
            ('mt.hvm_kv_task_standards_inuse',
                concat_ws(' or ', format(may_insert, 'mt.hvm_kv_task_standards_inuse'), format(is_old, 'entered_date'))),
            ('mt.hvm_kv_task_packages', is_removable),
            ('mt.hvm_kv_task_assets', format('tptag not in (select tptag from mt.hvm_kv_task_packages where (%s) is not true)',
                is_removable)))
            as rules (relation, condition)
        where to_regclass(relation) is not null
    loop
        if not (select relrowsecurity from pg_class where oid = rule.relation::regclass) then
            execute format('alter table %s enable row level security', rule.relation);
        end if;
        if not exists (select from pg_policy where polrelid = rule.relation::regclass and polname = 'any_row') then
            execute format('create policy any_row on %s using (true)', rule.relation);
        end if;
        if not exists (select from pg_policy where polrelid = rule.relation::regclass and polname = 'deleted_rows') then
            execute format('create policy deleted_rows on %s as restrictive for delete using (%s)', rule.relation,
                rule.condition);
        end if;
    end loop;
end $$;
