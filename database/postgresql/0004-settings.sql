-- The one row of site settings and the one row of switches that the workstation reads; a site changes them later.

insert into mt.dbconfig (datecode, version, b_cal_4225, b_cal_4224, b_cal_p, procedit, tracecodes, trace_delta)
values (0, 6, 0, 0, 0, 4, 'ABCDE', 1);

insert into mt.hvm_kv_sysconfig (allow_ooc_stds, allow_poor_trace_stds)
values ('N', 'N');
