-- Calibration parameters. An instrument states what is its own; the rest is what the parameter screen starts with.

create temp table parameters (
    asset                     text primary key,
    tp_name                   text,
    input_low                 real,
    input_high                real,
    input_type                text,
    output_low                real,
    output_high               real,
    output_type               text,
    resolution                real,
    fs_range_pct              real default 0,         -- tolerances, the same to both sides
    span_pct                  real default 0,
    reading_pct               real default 0,
    lsd_counts                real default 0,
    units                     real default 0,
    repetitions               integer default 1,
    temp_scale                text default 'ITS-90',
    cj_ref_type_in            text default 'INT',
    temp_sens_type_in         text default 'RTD PT100 3926',
    temp_sens_type_out        text default 'RTD PT100 3926',
    temp_sens_wires_in        integer default 4,
    measurement_mode_out      text default 'Peak',
    measurement_direction_out text default 'Right',
    cycle_end_time_out        text default '1.0',
    frequency_response_out    text default '1676',
    threshold_torque_out      real default 0,
    click_dip_torque_out      real default 0,
    transducer_type_out       text default 'UTA',
    loop_pwr                  text default 'OFF',
    freq_ptpamp_in            real default 100,
    input_indicated           text default 'N',
    output_indicated          text default 'N'
);

-- Torque transducers: the output's high end is the span that is sent to a calibrator.
insert into parameters
    (asset, tp_name, input_low, input_high, input_type, output_low, output_high, output_type, resolution, reading_pct,
     transducer_type_out)
values
    ('TT-0300F', 'TORQUE 20-60-100', 0, 300, 'ft/lb', 0, 300, 'ft/lb', 0.1, 0.5, 'UTA'),
    ('TT-0150F', 'TORQUE 20-60-100', 0, 150, 'ft/lb', 0, 150, 'ft/lb', 0.1, 0.5, 'Industry Standard'),
    ('TT-0075F', 'TORQUE 20-60-100', 0,  75, 'ft/lb', 0,  75, 'ft/lb', 0.1, 0.5, 'UTA'),
    ('TT-0300I', 'TORQUE 20-60-100', 0, 300, 'in/lb', 0, 300, 'in/lb', 0.1, 0.5, 'High Output'),
    ('TT-0050I', 'TORQUE 20-60-100', 0,  50, 'in/lb', 0,  50, 'in/lb', 0.1, 0.5, 'UTA'),
    ('TT-0500N', 'TORQUE 20-60-100', 0, 500, 'N/m',   0, 500, 'N/m',   0.1, 0.5, 'UTA'),
    ('TT-0010N', 'TORQUE 20-60-100', 0,  10, 'N/m',   0,  10, 'N/m',   0.01, 0.5, 'UTA'),
    ('TT-S150',  'TORQUE 20-60-100', 0, 150, 'ft/lb', 0, 150, 'ft/lb', 0.1, 0.25, 'Serial'),
    ('TT-0200F', 'TORQUE 20-60-100', 0, 200, 'ft/lb', 0, 200, 'ft/lb', 0.1, 0.5, 'UTA'),
    ('TT-TRAIN', 'TORQUE 20-60-100', 0, 100, 'ft/lb', 0, 100, 'ft/lb', 0.1, 2, 'UTA'),
    ('STD-TT-0150F', 'TORQUE 20-60-100', 0, 150, 'ft/lb', 0, 150, 'ft/lb', 0.1, 0.5, 'UTA');

-- Click wrenches and screwdrivers.
insert into parameters
    (asset, tp_name, input_low, input_high, input_type, output_low, output_high, output_type, resolution, reading_pct,
     repetitions, measurement_mode_out, measurement_direction_out, cycle_end_time_out, frequency_response_out,
     threshold_torque_out, click_dip_torque_out)
values
    ('TW-101', 'TORQUE 20-60-100', 0, 250, 'ft/lb', 0, 250, 'ft/lb', 0.1, 4, 1, 'Click Dip', 'Right', '1.0', '1676', 10, 5),
    ('TW-102', 'TORQUE 20-60-100', 0, 100, 'ft/lb', 0, 100, 'ft/lb', 0.1, 4, 1, 'Click Dip', 'Right', '1.0', '1676', 5, 2),
    ('TW-103', 'TORQUE 20-60-100', 0,  50, 'ft/lb', 0,  50, 'ft/lb', 0.1, 4, 3, 'Click Dip', 'Right', '1.0', '1676', 2.5, 1),
    ('TW-104', 'TORQUE 20-60-100', 0, 200, 'in/lb', 0, 200, 'in/lb', 0.1, 6, 1, 'Click Dip', 'Right', '0.5', '1024', 10, 4),
    ('TW-105', 'TORQUE 20-60-100', 0, 120, 'N/m',   0, 120, 'N/m',   0.1, 4, 1, 'Click Dip', 'Left', '1.0', '1676', 6, 2.5),
    ('TD-109', 'TORQUE 20-60-100', 0,  40, 'in/lb', 0,  40, 'in/lb', 0.1, 6, 1, 'Click Dip', 'Right', '0.2', '1676', 2, 1),
    ('TW-111', 'TORQUE 20-60-100', 0, 250, 'ft/lb', 0, 250, 'ft/lb', 0.1, 4, 1, 'Click Dip', 'Right', '1.0', '1676', 10, 5),
    ('TW-112', 'TORQUE 20-40-60-80-100', 0, 100, 'ft/lb', 0, 100, 'ft/lb', 0.1, 4, 2, 'Click Dip', 'Right', '1.0', '1676',
        5, 2),
    ('ABC-TW-1', 'TORQUE 20-60-100', 0, 100, 'ft/lb', 0, 100, 'ft/lb', 0.1, 4, 1, 'Click Dip', 'Right', '1.0', '1676', 5, 2);

-- Digital and pulse tools; TW-107 sends its readings itself.
insert into parameters
    (asset, tp_name, input_low, input_high, input_type, output_low, output_high, output_type, resolution, fs_range_pct,
     reading_pct, lsd_counts, measurement_mode_out, cycle_end_time_out, frequency_response_out, threshold_torque_out,
     transducer_type_out)
values
    ('TW-106', 'TORQUE 20-60-100', 0, 340, 'N/m',   0, 340, 'N/m',   0.1,  0, 1, 1, 'Peak', '2.0', '302', 17, 'UTA'),
    ('TW-107', 'TORQUE 20-60-100', 0, 100, 'ft/lb', 0, 100, 'ft/lb', 0.1,  0, 1, 1, 'Peak', '1.0', '1676', 5, 'Serial'),
    ('TD-110', 'TORQUE 20-60-100', 0,   5, 'N/m',   0,   5, 'N/m',   0.01, 0, 1, 1, 'Peak', '0.5', '527', 0.25, 'UTA'),
    ('PW-113', 'TORQUE 20-60-100', 0,  80, 'N/m',   0,  80, 'N/m',   0.1,  5, 0, 0, 'Impulse', '0.1', '6144', 4, 'UTA');

-- Torque tools that the torque calibrator can't take: a dial that is read by eye, a pressure input, a voltage output.
insert into parameters
    (asset, tp_name, input_low, input_high, input_type, output_low, output_high, output_type, resolution, fs_range_pct,
     output_indicated)
values
    ('TW-108', 'TORQUE 20-60-100', 0, 600, 'ft/lb', 0, 600, 'ft/lb', 1, 4, 'Y'),
    ('HW-701', 'TORQUE 20-60-100', 0, 10000, 'psi', 0, 5000, 'ft/lb', 1, 3, 'N'),
    ('TQ-702', 'TORQUE 20-60-100', 0, 100, 'N/m', 0, 20, 'mV', 0.001, 0.5, 'N');

-- Pressure transmitters, converters, voltage and resistance: tolerances in percent of span.
insert into parameters
    (asset, tp_name, input_low, input_high, input_type, output_low, output_high, output_type, resolution, span_pct, loop_pwr)
values
    ('PT-101', '5 POINT UP',      0,  100, 'psig',  4, 20, 'mA', 0.001, 0.25, '24V'),
    ('PT-102', '9 POINT UP/DOWN', 0,  300, 'psig',  4, 20, 'mA', 0.001, 0.1,  '24V'),
    ('PT-103', '9 POINT UP/DOWN', 0,  150, 'inH2O', 4, 20, 'mA', 0.001, 0.25, '24V'),
    ('PT-104', '5 POINT UP',      0,  250, 'kPa',   4, 20, 'mA', 0.001, 0.25, '28V'),
    ('PT-105', '5 POINT UP',      0,   10, 'bar',   4, 20, 'mA', 0.001, 0.2,  '24V'),
    ('PT-106', '5 POINT UP',    -15,   60, 'psig',  4, 20, 'mA', 0.001, 0.25, '24V'),
    ('PT-107', '3 POINT UP',      0, 1000, 'mbar',  1,  5, 'V',  0.001, 0.25, 'OFF'),
    ('PT-108', '11 POINT UP',     0,   30, 'inHg',  4, 20, 'mA', 0.001, 0.5,  '24V'),
    ('LT-10''COL', '5 POINT UP',  0,  120, 'inH2O', 4, 20, 'mA', 0.001, 0.25, '24V'),
    ('UC-902', 'OLD 3 POINT',     0,  100, 'psig',  4, 20, 'mA', 0.001, 0.25, '24V'),
    ('UC-903', '5 POINT UP',      0,  100, 'psig',  4, 20, 'mA', 0.001, 0.25, '24V'),
    ('ABC-PT-1', '5 POINT UP',    0,  100, 'psig',  4, 20, 'mA', 0.001, 0.25, '24V'),
    ('IP-301', '5 POINT UP', 4, 20, 'mA',  3,    15,    'psi', 0.01,  0.5,  'OFF'),
    ('IP-302', '5 POINT UP', 4, 20, 'mA', 20.7, 103.4, 'kPa', 0.1,   0.5,  'OFF'),
    ('IP-303', '5 POINT UP', 4, 20, 'mA',  0.2,   1,   'bar', 0.001, 0.5,  'OFF'),
    ('PI-304', '5 POINT UP', 3, 15, 'psi', 4,    20,    'mA', 0.001, 0.5,  '24V'),
    ('VT-601', '5 POINT UP', 0, 50, 'mV',  0,    10,    'V',  0.001, 0.1,  'OFF'),
    ('SC-603', '3 POINT UP', 1,  5, 'V',   4,    20,    'mA', 0.001, 0.1,  'OFF'),
    ('AC-604', '3 POINT UP', 0, 120, 'VAC', 4,   20,    'mA', 0.01,  0.5,  'OFF'),
    ('RI-803', '5 POINT UP', 0, 400, 'Ohms', 4,  20,    'mA', 0.001, 0.25, '24V'),
    ('AN-805', '3 POINT UP', 0, 25, '%',   4,    20,    'mA', 0.01,  1,    'OFF');

-- Temperature transmitters.
insert into parameters
    (asset, tp_name, input_low, input_high, input_type, output_low, output_high, output_type, resolution, span_pct,
     loop_pwr, temp_sens_type_in, temp_sens_wires_in, cj_ref_type_in)
values
    ('TIT-201', '5 POINT UP',      0,  150, 'C', 4, 20, 'mA', 0.001, 0.3,  '24V', 'RTD PT100 385', 3, 'INT'),
    ('TIT-202', '9 POINT UP/DOWN', -50, 200, 'C', 4, 20, 'mA', 0.001, 0.25, '24V', 'RTD PT100 385', 4, 'INT'),
    ('TIT-203', '3 POINT UP',      0,  100, 'C', 4, 20, 'mA', 0.001, 0.3,  '24V', 'RTD PT1000 385', 2, 'INT'),
    ('TIT-204', '5 POINT UP',     32,  400, 'F', 4, 20, 'mA', 0.001, 0.5,  '24V', 'RTD NI120 672', 3, 'INT'),
    ('TIT-205', '5 POINT UP',      0,  800, 'C', 4, 20, 'mA', 0.001, 0.5,  '24V', 'TC K', 4, 'INT'),
    ('TIT-206', '5 POINT UP',      0,  500, 'C', 1,  5, 'V',  0.001, 0.5,  'OFF', 'TC J', 4, 'EXT'),
    ('TIT-207', '11 POINT UP',     0, 1400, 'C', 4, 20, 'mA', 0.001, 0.5,  '24V', 'TC S', 4, 'INT');

-- What is read by eye: loop indicators, a voltmeter, a gauge, a frequency indicator; tolerances in units.
insert into parameters
    (asset, tp_name, input_low, input_high, input_type, output_low, output_high, output_type, resolution, units,
     output_indicated)
values
    ('LI-401', '5 POINT UP', 4, 20, 'mA', 0, 100, '%',    0.1,  0.5,  'Y'),
    ('LI-402', '5 POINT UP', 4, 20, 'mA', 0, 300, 'psig', 0.1,  1.5,  'Y'),
    ('LI-403', '5 POINT UP', 1,  5, 'V',  0, 150, 'C',    0.1,  1,    'Y'),
    ('LI-404', '5 POINT UP', 4, 20, 'mA', 0, 500, 'kPa',  1,    3,    'Y'),
    ('VI-602', '5 POINT UP', 0, 10, 'V',  0,  10, 'V',    0.01, 0.05, 'Y'),
    ('PG-801', '5 POINT UP', 0, 200, 'psi', 0, 200, 'psi', 1,   2,    'Y');

-- Frequency: the wave's amplitude in millivolts.
insert into parameters
    (asset, tp_name, input_low, input_high, input_type, output_low, output_high, output_type, resolution, span_pct,
     freq_ptpamp_in, output_indicated)
values
    ('FT-501', '3 POINT UP', 10, 1000, 'Hz',  4,  20,    'mA',  0.001, 0.25, 10, 'N'),
    ('FI-502', 'FREQUENCY 10-50-90', 0.1, 10, 'KHz', 0.1, 10, 'KHz', 0.01, 0.2, 10, 'Y'),
    ('VF-503', 'FREQUENCY 10-50-90', 0, 10, 'V', 10, 10000, 'Hz', 1, 0.1, 100, 'N');

-- Thermocouple in and out, and an instrument that supplies its input itself.
insert into parameters
    (asset, tp_name, input_low, input_high, input_type, output_low, output_high, output_type, resolution, span_pct,
     temp_sens_type_in, temp_sens_type_out, input_indicated)
values
    ('TCS-802', '5 POINT UP', 0, 500, 'C', 0, 500, 'C', 0.1, 0.4, 'TC K', 'TC K', 'N'),
    ('SG-804', '3 POINT UP', 4, 20, 'mA', 4, 20, 'mA', 0.001, 0.1, 'RTD PT100 3926', 'RTD PT100 3926', 'Y');

update parameters set repetitions = 2 where asset = 'PT-108';
update parameters set repetitions = 3 where asset = 'TIT-203';

-- A tolerance that grows with the reading: a calibrator that knows one tolerance for the whole range judges by the
-- tightest.
update parameters set reading_pct = 0.5 where asset = 'RI-803';

insert into mt.hvm_kv_tag_config
    (mtag, resolution, input_type, output_type, input_low, input_high, output_low, output_high,
     temp_scale_in, temp_scale_out, cj_ref_type_in, cj_ref_type_out, cj_ref_temp_in, cj_ref_temp_out,
     temp_sens_type_in, temp_sens_type_out, temp_sens_wires_in, temp_sens_wires_out,
     neg_fs_range_pct, pos_fs_range_pct, neg_span_pct, pos_span_pct, neg_reading_pct, pos_reading_pct,
     neg_lsd_counts, pos_lsd_counts, neg_units, pos_units, tp_name, repetitions,
     baud_rate_out, data_bits_out, data_parity_out, stop_bits_out, cycle_end_time_out, frequency_response_out,
     measurement_direction_out, measurement_mode_out, threshold_torque_out, click_dip_torque_out,
     transducer_type_out, loop_pwr, freq_ptpamp_in, freq_ptpamp_out, input_indicated, output_indicated)
select mtag, resolution, input_type, output_type, input_low, input_high, output_low, output_high,
    temp_scale, temp_scale, cj_ref_type_in, 'INT', 0, 0,
    temp_sens_type_in, temp_sens_type_out, temp_sens_wires_in, 4,
    fs_range_pct, fs_range_pct, span_pct, span_pct, reading_pct, reading_pct,
    lsd_counts, lsd_counts, units, units, tp_name, repetitions,
    '9600', '8', 'None', '1', cycle_end_time_out, frequency_response_out,
    measurement_direction_out, measurement_mode_out, threshold_torque_out, click_dip_torque_out,
    transducer_type_out, loop_pwr, freq_ptpamp_in, 100, input_indicated, output_indicated
from parameters
join (select mtag, i4201 from mt.inventory union all select mtag, i4201 from abc.inventory) on i4201 = asset
order by mtag;

-- One with a tolerance that is not the same to both sides.
update mt.hvm_kv_tag_config set pos_units = 1, neg_units = 2
where mtag = (select mtag from mt.inventory where i4201 = 'LI-402');
