-- mt.db: the one row of site settings and the one row of switches that the workstation reads; a site changes them
-- later.

insert into mt.dbconfig (datecode, version, b_cal_4225, b_cal_4224, b_cal_p, procedit, tracecodes, trace_delta)
select 0, 6, 0, 0, 0, 4, 'ABCDE', 1
where not exists (select 1 from mt.dbconfig);

insert into mt.hvm_kv_sysconfig (allow_ooc_stds, allow_poor_trace_stds)
select 'N', 'N'
where not exists (select 1 from mt.hvm_kv_sysconfig);
