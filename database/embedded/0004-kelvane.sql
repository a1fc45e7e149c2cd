-- mt.db: the workstation's own tables. They are read as text throughout; numbers stand in numeric columns all the
-- same, so that they sort and compare as numbers and a slip is refused. Timestamps are 'YYYY-MM-DD HH:MM:SS'.

-- Test strategies, one row for each point. A renamed strategy may join another one: no key over the sequence.
create table if not exists mt.hvm_kv_proc_points (
    tp_name        text not null,
    test_point_seq integer not null,
    test_point_pct real not null                      -- percent of the input range
) strict;

create index if not exists mt.hvm_kv_proc_points_order on hvm_kv_proc_points (tp_name, test_point_seq);

-- Calibration parameters, one row for each instrument.
create table if not exists mt.hvm_kv_tag_config (
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

create index if not exists mt.hvm_kv_tag_config_strategy on hvm_kv_tag_config (tp_name);

-- Test messages, and which instrument shows which.
create table if not exists mt.hvm_kv_prompts (
    pname  text primary key,
    prompt text
) strict;

create table if not exists mt.hvm_kv_proc_prompts (
    mtag        text,
    prompt_type text,                                 -- PRE before the test, PST after it
    prompt_seq  integer,
    pname       text
) strict;

create index if not exists mt.hvm_kv_proc_prompts_asset on hvm_kv_proc_prompts (mtag, prompt_type, prompt_seq);
create index if not exists mt.hvm_kv_proc_prompts_name on hvm_kv_proc_prompts (pname);

-- Task packages: by definition (PDEF) or made for one print or download (WSHT).
create table if not exists mt.hvm_kv_task_packages (
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

create index if not exists mt.hvm_kv_task_packages_name on hvm_kv_task_packages (taskname);

create table if not exists mt.hvm_kv_task_assets (
    tptag text,
    mtag  text
) strict;

create index if not exists mt.hvm_kv_task_assets_package on hvm_kv_task_assets (tptag, mtag);

-- What is out on a calibrator, with which standards, and the standards last named.
create table if not exists mt.hvm_kv_task_inuse (
    serial_number text,                               -- of the calibrator
    entered_date  text check (entered_date is datetime(entered_date, '+0 days')),
    mtag          text,
    tech          text
) strict;

create index if not exists mt.hvm_kv_task_inuse_calibrator on hvm_kv_task_inuse (serial_number, mtag);

create table if not exists mt.hvm_kv_task_standards_inuse (
    standard_mtag text,
    entered_date  text check (entered_date is datetime(entered_date, '+0 days')),
    mtag          text
) strict;

create index if not exists mt.hvm_kv_task_standards_inuse_standard on hvm_kv_task_standards_inuse (standard_mtag, mtag);
create index if not exists mt.hvm_kv_task_standards_inuse_asset on hvm_kv_task_standards_inuse (mtag);

create table if not exists mt.hvm_kv_last_standards_used (
    standard_mtag text,
    entered_date  text check (entered_date is datetime(entered_date, '+0 days')),
    mtag          text
) strict;

create index if not exists mt.hvm_kv_last_standards_used_asset on hvm_kv_last_standards_used (mtag);

-- Fields that the making of a calibration record asks for.
create table if not exists mt.hvm_kv_worksheetfields (
    fldnum   text,
    sequence integer
) strict;

-- One row of switches, Y or N: may an overdue standard, or one of too low a trace level, be used all the same?
create table if not exists mt.hvm_kv_sysconfig (
    allow_ooc_stds        text,
    allow_poor_trace_stds text
) strict;
