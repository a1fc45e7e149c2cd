-- sys.db: the catalogue that tells what kind of value a column holds. The engine knows text, whole numbers and reals
-- only, so the kinds are written down here, column by column; a name means the same in every table that has it.

create table if not exists sys.sysdomain (
    domain_id   integer primary key,
    domain_name text not null unique
) strict;

create table if not exists sys.syscolumn (
    domain_id   integer not null,
    column_name text primary key collate nocase
) strict;

insert or ignore into sys.sysdomain (domain_id, domain_name) values
    (1, 'SMALLINT'),
    (2, 'INTEGER'),
    (3, 'NUMERIC'),
    (4, 'FLOAT'),
    (5, 'DOUBLE'),
    (6, 'DATE'),
    (7, 'CHAR'),
    (8, 'VARCHAR'),
    (9, 'LONG VARCHAR'),
    (10, 'BINARY'),
    (11, 'LONG BINARY'),
    (12, 'TIMESTAMP'),
    (13, 'TIME'),
    (14, 'TINYINT');

insert or ignore into sys.syscolumn (domain_id, column_name)
select domain_id, column1
from sys.sysdomain, (values
    ('b_cal_4224'), ('b_cal_4225'), ('b_cal_p'), ('c2302'), ('c2350'), ('c2352'), ('c2502'), ('datalen'),
    ('datecode'), ('i4229'), ('mtlevel'), ('nextfld'), ('procedit'), ('prompt_seq'), ('row'), ('sequence'),
    ('temp_sens_wires_in'), ('temp_sens_wires_out'), ('test_point_seq'), ('trace_delta'), ('version'))
where domain_name = 'SMALLINT';

insert or ignore into sys.syscolumn (domain_id, column_name)
select domain_id, column1
from sys.sysdomain, (values ('ctag'))
where domain_name = 'INTEGER';

insert or ignore into sys.syscolumn (domain_id, column_name)
select domain_id, column1
from sys.sysdomain, (values ('c2311'), ('c2312'), ('c2313'))
where domain_name = 'FLOAT';

insert or ignore into sys.syscolumn (domain_id, column_name)
select domain_id, column1
from sys.sysdomain, (values
    ('cj_ref_temp_in'), ('cj_ref_temp_out'), ('click_dip_torque_out'), ('freq_ptpamp_in'), ('freq_ptpamp_out'),
    ('input_high'), ('input_low'), ('neg_fs_range_pct'), ('neg_lsd_counts'), ('neg_reading_pct'),
    ('neg_span_pct'), ('neg_units'), ('output_high'), ('output_low'), ('pos_fs_range_pct'), ('pos_lsd_counts'),
    ('pos_reading_pct'), ('pos_span_pct'), ('pos_units'), ('repetitions'), ('resolution'), ('test_point_pct'),
    ('threshold_torque_out'))
where domain_name = 'DOUBLE';

insert or ignore into sys.syscolumn (domain_id, column_name)
select domain_id, column1
from sys.sysdomain, (values
    ('c2301'), ('c2303'), ('c2355'), ('c2390'), ('holiday'), ('i4225'), ('i4230'), ('i4231'), ('l2802'),
    ('r3201'))
where domain_name = 'DATE';

insert or ignore into sys.syscolumn (domain_id, column_name)
select domain_id, column1
from sys.sysdomain, (values ('c2333'), ('c2334'))
where domain_name = 'TIME';

insert or ignore into sys.syscolumn (domain_id, column_name)
select domain_id, column1
from sys.sysdomain, (values ('created_on'), ('entered_date'))
where domain_name = 'TIMESTAMP';

insert or ignore into sys.syscolumn (domain_id, column_name)
select domain_id, column1
from sys.sysdomain, (values
    ('allow_ooc_stds'), ('allow_poor_trace_stds'), ('c2323'), ('c2339'), ('i4209'), ('input_indicated'),
    ('ireq'), ('l2815'), ('output_indicated'), ('prompt_type'), ('r3246'), ('sreq'), ('suppressed'),
    ('tp_definition'))
where domain_name = 'CHAR';

insert or ignore into sys.syscolumn (domain_id, column_name)
select domain_id, column1
from sys.sysdomain, (values
    ('baud_rate_out'), ('c2306'), ('c2307'), ('c2308'), ('c2309'), ('c2315'), ('c2316'), ('c2317'), ('c2318'),
    ('c2319'), ('c2320'), ('c2324'), ('c2331'), ('c2336'), ('c2338'), ('c2391'), ('c2430'), ('c2501'), ('cdsrc'),
    ('cj_ref_type_in'), ('cj_ref_type_out'), ('cycle_end_time_out'), ('data_bits_out'), ('data_parity_out'),
    ('datacol'), ('dayofweek'), ('dcopy'), ('description'), ('fldnum'), ('frequency_response_out'), ('i4201'),
    ('i4202'), ('i4203'), ('i4204'), ('i4206'), ('i4224'), ('i4228'), ('i4240'), ('idefault'), ('input_type'),
    ('k4601'), ('k4602'), ('l2801'), ('loop_pwr'), ('measurement_direction_out'), ('measurement_mode_out'),
    ('model'), ('mtag'), ('mtuser'), ('output_type'), ('pname'), ('r3202'), ('scopy'), ('sdefault'),
    ('segregate'), ('serial_number'), ('standard_mtag'), ('stop_bits_out'), ('taskname'), ('tech'),
    ('temp_scale_in'), ('temp_scale_out'), ('temp_sens_type_in'), ('temp_sens_type_out'), ('title'),
    ('tp_name'), ('tptag'), ('tptype'), ('tracecodes'), ('transducer_type_out'), ('val'), ('validation'))
where domain_name = 'VARCHAR';

insert or ignore into sys.syscolumn (domain_id, column_name)
select domain_id, column1
from sys.sysdomain, (values ('c2326'), ('c2329'), ('notes'), ('prompt'), ('task_sql'), ('tooltip'))
where domain_name = 'LONG VARCHAR';
