-- Schema mt: the tables that all owners share. First those of MET/TRACK, then the workstation's own. They are read as
-- text throughout; numbers stand in numeric columns all the same, so that they sort and compare as numbers and a slip is
-- refused.

create schema mt;

create table mt.userlist (
    mtuser  dialect.citext primary key, -- login name
    i4240   sys."VARCHAR",              -- owner of the user's data
    mtlevel sys."SMALLINT"
);

create table mt.dbconfig (
    datecode    sys."SMALLINT", -- 0 MM/DD/YYYY, 1 DD/MM/YYYY, 2 YYYY/MM/DD
    version     sys."SMALLINT", -- database version
    b_cal_4225  sys."SMALLINT", -- 1: a calibration keeps i4225
    b_cal_4224  sys."SMALLINT", -- 1: a calibration keeps i4224
    b_cal_p     sys."SMALLINT", -- 1: a calibration that fails keeps both
    procedit    sys."SMALLINT", -- lowest level that may edit procedures
    tracecodes  sys."VARCHAR",  -- trace codes, the primary standard's first
    trace_delta sys."SMALLINT"  -- places between a standard and what it calibrates
);

create table mt.nonworkdays (
    dayofweek sys."VARCHAR" not null unique -- English day name
);

create table mt.holidays (
    holiday sys."DATE" not null unique
);

-- The field dictionary. ireq and idefault count for an asset's first calibration, sreq and sdefault afterwards.
create table mt.customiz (
    fldnum     sys."VARCHAR" primary key,
    datacol    sys."VARCHAR",  -- column of the field
    title      sys."VARCHAR",
    idefault   sys."VARCHAR",
    ireq       sys."CHAR",
    sreq       sys."CHAR",
    sdefault   sys."VARCHAR",
    scopy      sys."VARCHAR",  -- copied forward from: ON, OFF or a field
    dcopy      sys."VARCHAR",  -- copied back to: OFF or a column
    validation sys."VARCHAR",  -- SIMPLE or LINKED: has a value list
    datalen    sys."SMALLINT", -- longest entry
    tooltip    sys."LONG VARCHAR",
    suppressed sys."CHAR",     -- Y or N
    row        sys."SMALLINT", -- order on the screen
    nextfld    sys."SMALLINT"
);

create table mt.valfield (
    fldnum sys."VARCHAR" not null,
    val    sys."VARCHAR"
);

create index valfield_list on mt.valfield (fldnum, val);

create table mt.segregate (
    i4240 sys."VARCHAR" not null unique -- owner group
);

-- Standards used and result lines of a calibration.
create table mt.standards (
    c2430 sys."VARCHAR", -- mtag of the standard
    mtag  sys."VARCHAR",
    ctag  sys."INTEGER"
);

create index standards_calibration on mt.standards (mtag, ctag);

create table mt.calresults (
    c2501 sys."VARCHAR",  -- the line
    c2502 sys."SMALLINT", -- its number, from 0
    mtag  sys."VARCHAR",
    ctag  sys."INTEGER"
);

create index calresults_calibration on mt.calresults (mtag, ctag, c2502);

-- Test strategies, one row for each point. A renamed strategy may join another one: no key over the sequence.
create table mt.hvm_kv_proc_points (
    tp_name        sys."VARCHAR" not null,
    test_point_seq sys."SMALLINT" not null,
    test_point_pct sys."DOUBLE" not null -- percent of the input range
);

create index hvm_kv_proc_points_order on mt.hvm_kv_proc_points (tp_name, test_point_seq);

-- Calibration parameters, one row for each instrument.
create table mt.hvm_kv_tag_config (
    mtag                      sys."VARCHAR" not null unique,
    resolution                sys."DOUBLE",
    input_type                sys."VARCHAR",
    output_type               sys."VARCHAR",
    input_low                 sys."DOUBLE",
    input_high                sys."DOUBLE",
    output_low                sys."DOUBLE",
    output_high               sys."DOUBLE",
    temp_scale_in             sys."VARCHAR",
    temp_scale_out            sys."VARCHAR",
    cj_ref_type_in            sys."VARCHAR", -- INT or EXT
    cj_ref_type_out           sys."VARCHAR",
    cj_ref_temp_in            sys."DOUBLE",
    cj_ref_temp_out           sys."DOUBLE",
    temp_sens_type_in         sys."VARCHAR",
    temp_sens_type_out        sys."VARCHAR",
    temp_sens_wires_in        sys."SMALLINT",
    temp_sens_wires_out       sys."SMALLINT",
    neg_fs_range_pct          sys."DOUBLE",
    pos_fs_range_pct          sys."DOUBLE",
    neg_span_pct              sys."DOUBLE",
    pos_span_pct              sys."DOUBLE",
    neg_reading_pct           sys."DOUBLE",
    pos_reading_pct           sys."DOUBLE",
    neg_lsd_counts            sys."DOUBLE",
    pos_lsd_counts            sys."DOUBLE",
    neg_units                 sys."DOUBLE",
    pos_units                 sys."DOUBLE",
    tp_name                   sys."VARCHAR",
    repetitions               sys."DOUBLE",  -- the screen lets a fraction pass
    baud_rate_out             sys."VARCHAR",
    click_dip_torque_out      sys."DOUBLE",
    cycle_end_time_out        sys."VARCHAR",
    data_bits_out             sys."VARCHAR",
    data_parity_out           sys."VARCHAR",
    frequency_response_out    sys."VARCHAR",
    measurement_direction_out sys."VARCHAR",
    measurement_mode_out      sys."VARCHAR",
    stop_bits_out             sys."VARCHAR",
    threshold_torque_out      sys."DOUBLE",
    transducer_type_out       sys."VARCHAR",
    loop_pwr                  sys."VARCHAR", -- OFF, 24V or 28V
    freq_ptpamp_in            sys."DOUBLE",  -- millivolts, peak to peak
    freq_ptpamp_out           sys."DOUBLE",
    input_indicated           sys."CHAR",    -- Y or N
    output_indicated          sys."CHAR"
);

create index hvm_kv_tag_config_strategy on mt.hvm_kv_tag_config (tp_name);

-- Test messages, and which instrument shows which.
create table mt.hvm_kv_prompts (
    pname  sys."VARCHAR" primary key,
    prompt sys."LONG VARCHAR"
);

create table mt.hvm_kv_proc_prompts (
    mtag        sys."VARCHAR" not null,
    prompt_type sys."CHAR" not null, -- PRE before the test, PST after it
    prompt_seq  sys."SMALLINT" not null,
    pname       sys."VARCHAR" not null
);

create index hvm_kv_proc_prompts_asset on mt.hvm_kv_proc_prompts (mtag, prompt_type, prompt_seq);
create index hvm_kv_proc_prompts_name on mt.hvm_kv_proc_prompts (pname);

-- Task packages: by definition (PDEF) or made for one print or download (WSHT).
create table mt.hvm_kv_task_packages (
    taskname      sys."VARCHAR" not null,
    tptype        sys."VARCHAR",
    mtuser        sys."VARCHAR",
    created_on    sys."TIMESTAMP",
    tptag         sys."VARCHAR" not null unique,
    notes         sys."LONG VARCHAR",
    tp_definition sys."CHAR", -- A list, S condition, G group, M model, D description
    task_sql      sys."LONG VARCHAR",
    segregate     sys."VARCHAR",
    model         sys."VARCHAR",
    description   sys."VARCHAR"
);

create index hvm_kv_task_packages_name on mt.hvm_kv_task_packages (taskname);

create table mt.hvm_kv_task_assets (
    tptag sys."VARCHAR" not null,
    mtag  sys."VARCHAR" not null
);

create index hvm_kv_task_assets_package on mt.hvm_kv_task_assets (tptag, mtag);

-- What is out on a calibrator, with which standards, and the standards last named.
create table mt.hvm_kv_task_inuse (
    serial_number sys."VARCHAR", -- of the calibrator
    entered_date  sys."TIMESTAMP",
    mtag          sys."VARCHAR",
    tech          sys."VARCHAR"
);

create index hvm_kv_task_inuse_calibrator on mt.hvm_kv_task_inuse (serial_number, mtag);

create table mt.hvm_kv_task_standards_inuse (
    standard_mtag sys."VARCHAR",
    entered_date  sys."TIMESTAMP",
    mtag          sys."VARCHAR"
);

create index hvm_kv_task_standards_inuse_standard on mt.hvm_kv_task_standards_inuse (standard_mtag, mtag);
create index hvm_kv_task_standards_inuse_asset on mt.hvm_kv_task_standards_inuse (mtag);

create table mt.hvm_kv_last_standards_used (
    standard_mtag sys."VARCHAR",
    entered_date  sys."TIMESTAMP",
    mtag          sys."VARCHAR"
);

create index hvm_kv_last_standards_used_asset on mt.hvm_kv_last_standards_used (mtag);

-- Fields that the making of a calibration record asks for.
create table mt.hvm_kv_worksheetfields (
    fldnum   sys."VARCHAR" not null,
    sequence sys."SMALLINT" not null
);

-- One row of switches, Y or N: may an overdue standard, or one of too low a trace level, be used all the same?
create table mt.hvm_kv_sysconfig (
    allow_ooc_stds        sys."CHAR",
    allow_poor_trace_stds sys."CHAR"
);
