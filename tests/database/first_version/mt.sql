-- mt.db: what the first scripts made beside the tables of the owner, with rows.

create table userlist (
    mtuser  text primary key collate nocase,          -- login name
    i4240   text,                                     -- owner of the user's data
    mtlevel integer
) strict;

create table dbconfig (
    datecode    integer,                              -- 0 MM/DD/YYYY, 1 DD/MM/YYYY, 2 YYYY/MM/DD
    version     integer,                              -- database version
    b_cal_4225  integer,                              -- 1: a calibration keeps i4225
    b_cal_4224  integer,                              -- 1: a calibration keeps i4224
    b_cal_p     integer,                              -- 1: a calibration that fails keeps both
    procedit    integer,                              -- lowest level that may edit procedures
    tracecodes  text,                                 -- trace codes, the primary standard's first
    trace_delta integer                               -- places between a standard and what it calibrates
) strict;

create table nonworkdays (
    dayofweek text not null unique                    -- English day name
) strict;

create table holidays (
    holiday text not null unique check (holiday is date(holiday, '+0 days'))
) strict;

create table customiz (
    fldnum     text primary key,
    datacol    text,                                  -- column of the field
    title      text,
    idefault   text,
    ireq       text,
    sreq       text,
    sdefault   text,
    scopy      text,                                  -- copied forward from: ON, OFF or a field
    dcopy      text,                                  -- copied back to: OFF or a column
    validation text,                                  -- SIMPLE or LINKED: has a value list
    datalen    integer,                               -- longest entry
    tooltip    text,
    suppressed text,                                  -- Y or N
    row        integer,                               -- order on the screen
    nextfld    integer
) strict;

create table valfield (
    fldnum text not null,
    val    text
) strict;

create index valfield_list on valfield (fldnum, val);

create table segregate (
    i4240 text not null unique                        -- owner group
) strict;

create table standards (
    c2430 text,                                       -- mtag of the standard
    mtag  text,
    ctag  integer
) strict;

create index standards_calibration on standards (mtag, ctag);

create table calresults (
    c2501 text,                                       -- the line
    c2502 integer,                                    -- its number, from 0
    mtag  text,
    ctag  integer
) strict;

create index calresults_calibration on calresults (mtag, ctag, c2502);

create table hvm_kv_proc_points (
    tp_name        text not null,
    test_point_seq integer not null,
    test_point_pct real not null                      -- percent of the input range
) strict;

create index hvm_kv_proc_points_order on hvm_kv_proc_points (tp_name, test_point_seq);

create table hvm_kv_tag_config (
    mtag                      text unique,
    resolution                real,
    input_type                text,
    output_type               text,
    input_low                 real,
    input_high                real,
    output_low                real,
    output_high               real,
    temp_scale_in             text,
    temp_scale_out            text,
    cj_ref_type_in            text,                   -- INT or EXT
    cj_ref_type_out           text,
    cj_ref_temp_in            real,
    cj_ref_temp_out           real,
    temp_sens_type_in         text,
    temp_sens_type_out        text,
    temp_sens_wires_in        integer,
    temp_sens_wires_out       integer,
    neg_fs_range_pct          real,
    pos_fs_range_pct          real,
    neg_span_pct              real,
    pos_span_pct              real,
    neg_reading_pct           real,
    pos_reading_pct           real,
    neg_lsd_counts            real,
    pos_lsd_counts            real,
    neg_units                 real,
    pos_units                 real,
    tp_name                   text,
    repetitions               real,                   -- the screen lets a fraction pass
    baud_rate_out             text,
    click_dip_torque_out      real,
    cycle_end_time_out        text,
    data_bits_out             text,
    data_parity_out           text,
    frequency_response_out    text,
    measurement_direction_out text,
    measurement_mode_out      text,
    stop_bits_out             text,
    threshold_torque_out      real,
    transducer_type_out       text,
    loop_pwr                  text,                   -- OFF, 24V or 28V
    freq_ptpamp_in            real,                   -- millivolts, peak to peak
    freq_ptpamp_out           real,
    input_indicated           text,                   -- Y or N
    output_indicated          text
) strict;

create index hvm_kv_tag_config_strategy on hvm_kv_tag_config (tp_name);

create table hvm_kv_prompts (
    pname  text primary key,
    prompt text
) strict;

create table hvm_kv_proc_prompts (
    mtag        text,
    prompt_type text,                                 -- PRE before the test, PST after it
    prompt_seq  integer,
    pname       text
) strict;

create index hvm_kv_proc_prompts_asset on hvm_kv_proc_prompts (mtag, prompt_type, prompt_seq);
create index hvm_kv_proc_prompts_name on hvm_kv_proc_prompts (pname);

create table hvm_kv_task_packages (
    taskname      text,
    tptype        text,
    mtuser        text,
    created_on    text check (created_on is datetime(created_on, '+0 days')),
    tptag         text not null unique,
    notes         text,
    tp_definition text,                               -- A list, S condition, G group, M model, D description
    task_sql      text,
    segregate     text,
    model         text,
    description   text
) strict;

create index hvm_kv_task_packages_name on hvm_kv_task_packages (taskname);

create table hvm_kv_task_assets (
    tptag text,
    mtag  text
) strict;

create index hvm_kv_task_assets_package on hvm_kv_task_assets (tptag, mtag);

create table hvm_kv_task_inuse (
    serial_number text,                               -- of the calibrator
    entered_date  text check (entered_date is datetime(entered_date, '+0 days')),
    mtag          text,
    tech          text
) strict;

create index hvm_kv_task_inuse_calibrator on hvm_kv_task_inuse (serial_number, mtag);

create table hvm_kv_task_standards_inuse (
    standard_mtag text,
    entered_date  text check (entered_date is datetime(entered_date, '+0 days')),
    mtag          text
) strict;

create index hvm_kv_task_standards_inuse_standard on hvm_kv_task_standards_inuse (standard_mtag, mtag);
create index hvm_kv_task_standards_inuse_asset on hvm_kv_task_standards_inuse (mtag);

create table hvm_kv_last_standards_used (
    standard_mtag text,
    entered_date  text check (entered_date is datetime(entered_date, '+0 days')),
    mtag          text
) strict;

create index hvm_kv_last_standards_used_asset on hvm_kv_last_standards_used (mtag);

create table hvm_kv_worksheetfields (
    fldnum   text,
    sequence integer
) strict;

create table hvm_kv_sysconfig (
    allow_ooc_stds        text,
    allow_poor_trace_stds text
) strict;

insert into userlist values ('jdoe', 'MT', 1), ('MT', 'MT', 6);
insert into dbconfig values (1, 5, 1, 0, 1, 3, 'XYZ', 2);
insert into nonworkdays values ('Sunday');
insert into holidays values ('2026-12-25');
insert into customiz (fldnum, title, ireq, datalen, row) values ('2301', 'Date', 'Y', 10, 1), ('2326', null, 'N', null, 2);
insert into valfield values ('2315', 'LAB'), ('2315', null);
insert into segregate values ('MT'), ('ABC');
insert into standards values ('2', '1', 1000001), (null, null, null);
insert into calresults values ('50 %   pass', 0, '1', 1000001), ('', 1, '1', 1000001);
insert into hvm_kv_proc_points values ('3 POINTS', 1, 0), ('3 POINTS', 2, 50), ('3 POINTS', 3, 99.9);
insert into hvm_kv_tag_config (mtag, resolution, input_type, tp_name, repetitions, loop_pwr, input_indicated) values
    ('1', 0.001, 'psig', '3 POINTS', 1.5, '24V', 'Y'), ('2', null, null, null, null, null, null);
insert into hvm_kv_prompts values ('VENT', 'Open the vent.'), ('EMPTY', null);
insert into hvm_kv_proc_prompts values ('1', 'PRE', 0, 'VENT'), ('1', 'PST', 0, 'VENT');
insert into hvm_kv_task_packages (taskname, tptype, created_on, tptag, tp_definition) values
    ('UNIT 1', 'PDEF', '2026-01-31 08:00:00', 'tag1', 'A'), ('UNIT 1', 'WSHT', null, 'tag2', null);
insert into hvm_kv_task_assets values ('tag1', '1'), ('tag1', '2');
insert into hvm_kv_task_inuse values ('48213', '2026-01-31 08:00:00', '1', 'jdoe'), (null, null, null, null);
insert into hvm_kv_task_standards_inuse values ('2', '2026-01-31 08:00:00', '1');
insert into hvm_kv_last_standards_used values ('2', '2026-01-31 08:00:00', '1');
insert into hvm_kv_worksheetfields values ('2326', 1), ('2315', 2);
insert into hvm_kv_sysconfig values ('Y', 'N');
