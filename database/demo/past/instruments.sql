-- The instruments with a past of five years, and the standards that they are calibrated with: the boiler house and the water
-- plant, in owner groups of their own. What is in calibration, and every record, comes from the program
-- (admin/demonstration_past.h), which knows how each of them behaves.

insert into mt.segregate (i4240) values ('BOILER'), ('WATER');

-- What is alike for all of a model; beside that it is set up like the instrument named as its pattern.
create temp table kind (
    model       text primary key,
    maker       text,
    description text,
    pattern     text,
    tp_name     text,
    input_low   real,
    input_high  real,
    input_type  text,
    output_low  real,
    output_high real,
    output_type text,
    resolution  real,
    span_pct    real,                                               -- tolerances, the same to both sides
    units       real
);

insert into kind values
    -- instruments
    ('S400',   'VALTEC',   'STEAM PRESSURE TRANSMITTER', 'PT-101',  '5 POINT UP',      0,  400, 'psig',  4, 20, 'mA', 0.001, 0.25, 0),
    ('D100',   'VALTEC',   'FLOW TRANSMITTER',           'PT-103',  '9 POINT UP/DOWN', 0,  100, 'inH2O', 4, 20, 'mA', 0.001, 0.25, 0),
    ('D60',    'VALTEC',   'DRUM LEVEL TRANSMITTER',     'PT-103',  '5 POINT UP',      0,   60, 'inH2O', 4, 20, 'mA', 0.001, 0.25, 0),
    ('R150',   'VALTEC',   'RTD TRANSMITTER',            'TIT-201', '5 POINT UP',      0,  150, 'C',     4, 20, 'mA', 0.001, 0.3,  0),
    ('K1000',  'VALTEC',   'THERMOCOUPLE TRANSMITTER',   'TIT-205', '5 POINT UP',      0, 1000, 'C',     4, 20, 'mA', 0.001, 0.5,  0),
    ('IP-15S', 'ROSWELL',  'VALVE CONVERTER',            'IP-301',  '5 POINT UP',      4,   20, 'mA',    3, 15, 'psi', 0.01, 0.5,  0),
    ('L-P4',   'ROSWELL',  'PANEL INDICATOR',            'LI-401',  '5 POINT UP',      4,   20, 'mA',    0, 100, '%', 0.1,   0,    0.5),
    ('W16',    'VALTEC',   'WATER PRESSURE TRANSMITTER', 'PT-105',  '5 POINT UP',      0,   16, 'bar',   4, 20, 'mA', 0.001, 0.2,  0),
    ('G250',   'VALTEC',   'WATER PRESSURE GAUGE',       'PG-801',  '5 POINT UP',      0,  250, 'psi',   0, 250, 'psi', 0.1, 0,    1.5),
    -- standards
    ('744',    'FLUKE',    'PLANT CALIBRATOR',           'SG-804',  '5 POINT UP',      4,   20, 'mA',    4, 20, 'mA', 0.001, 0,    0.006),
    ('700P29', 'FLUKE',    'PLANT PRESSURE MODULE',      'PG-801',  '5 POINT UP',      0,  500, 'psi',   0, 500, 'psi', 0.01, 0.05, 0),
    ('700P03', 'FLUKE',    'PLANT PRESSURE MODULE',      'PG-801',  '5 POINT UP',      0,    5, 'psi',   0,   5, 'psi', 0.0001, 0.05, 0),
    ('700P05', 'FLUKE',    'PLANT PRESSURE MODULE',      'PG-801',  '5 POINT UP',      0,   30, 'psi',   0,  30, 'psi', 0.001, 0.05, 0),
    ('8060',   'OSTERMAN', 'PLANT MULTIMETER',           'SG-804',  '5 POINT UP',      4,   20, 'mA',    4, 20, 'mA', 0.001, 0,    0.01);

-- Places stand for instruments alone; trace codes for standards are those of the field.
create temp table member (
    mtag    text primary key,
    asset   text,
    model   text,
    serial  text,
    section text,
    months  integer,
    place   text
);

insert into member values
    ('5001', 'B1-PT-01', 'S400', 'V41001', 'BOILER', 12, 'BOILER 1 MAIN STEAM HEADER'),
    ('5002', 'B1-PT-02', 'S400', 'V41002', 'BOILER', 12, 'BOILER 1 DRUM'),
    ('5003', 'B1-PT-03', 'S400', 'V41003', 'BOILER', 12, 'BOILER 1 FEED PUMP'),
    ('5004', 'B2-PT-01', 'S400', 'V41004', 'BOILER', 12, 'BOILER 2 MAIN STEAM HEADER'),
    ('5005', 'B2-PT-02', 'S400', 'V41005', 'BOILER', 12, 'BOILER 2 DRUM'),
    ('5006', 'B2-PT-03', 'S400', 'V41006', 'BOILER', 12, 'BOILER 2 FEED PUMP'),
    ('5007', 'B1-FT-01', 'D100', 'V42001', 'BOILER', 12, 'BOILER 1 FEED WATER'),
    ('5008', 'B1-FT-02', 'D100', 'V42002', 'BOILER', 12, 'BOILER 1 COMBUSTION AIR'),
    ('5009', 'B2-FT-01', 'D100', 'V42003', 'BOILER', 12, 'BOILER 2 FEED WATER'),
    ('5010', 'B2-FT-02', 'D100', 'V42004', 'BOILER', 12, 'BOILER 2 COMBUSTION AIR'),
    ('5011', 'WT-FT-01', 'D100', 'V42005', 'WATER',  12, 'RAW WATER INTAKE'),
    ('5012', 'WT-FT-02', 'D100', 'V42006', 'WATER',  12, 'FILTER 1 OUTLET'),
    ('5013', 'B1-LT-01', 'D60',  'V43001', 'BOILER', 6,  'BOILER 1 DRUM, LEFT'),
    ('5014', 'B1-LT-02', 'D60',  'V43002', 'BOILER', 6,  'BOILER 1 DRUM, RIGHT'),
    ('5015', 'B2-LT-01', 'D60',  'V43003', 'BOILER', 6,  'BOILER 2 DRUM, LEFT'),
    ('5016', 'B2-LT-02', 'D60',  'V43004', 'BOILER', 6,  'BOILER 2 DRUM, RIGHT'),
    ('5017', 'B1-TT-01', 'R150', 'V44001', 'BOILER', 12, 'BOILER 1 FEED WATER'),
    ('5018', 'B2-TT-01', 'R150', 'V44002', 'BOILER', 12, 'BOILER 2 FEED WATER'),
    ('5019', 'CT-TT-01', 'R150', 'V44003', 'WATER',  12, 'COOLING TOWER 1 BASIN'),
    ('5020', 'CT-TT-02', 'R150', 'V44004', 'WATER',  12, 'COOLING TOWER 1 RETURN'),
    ('5021', 'CT-TT-03', 'R150', 'V44005', 'WATER',  12, 'COOLING TOWER 2 BASIN'),
    ('5022', 'CT-TT-04', 'R150', 'V44006', 'WATER',  12, 'COOLING TOWER 2 RETURN'),
    ('5023', 'B1-TT-11', 'K1000', 'V45001', 'BOILER', 6, 'BOILER 1 FURNACE'),
    ('5024', 'B1-TT-12', 'K1000', 'V45002', 'BOILER', 6, 'BOILER 1 FLUE GAS'),
    ('5025', 'B2-TT-11', 'K1000', 'V45003', 'BOILER', 6, 'BOILER 2 FURNACE'),
    ('5026', 'B2-TT-12', 'K1000', 'V45004', 'BOILER', 6, 'BOILER 2 FLUE GAS'),
    ('5027', 'B1-FY-01', 'IP-15S', 'R46001', 'BOILER', 12, 'BOILER 1 FEED WATER VALVE'),
    ('5028', 'B2-FY-01', 'IP-15S', 'R46002', 'BOILER', 12, 'BOILER 2 FEED WATER VALVE'),
    ('5029', 'WT-FY-01', 'IP-15S', 'R46003', 'WATER',  12, 'FILTER 1 VALVE'),
    ('5030', 'WT-FY-02', 'IP-15S', 'R46004', 'WATER',  12, 'FILTER 2 VALVE'),
    ('5031', 'B1-LI-01', 'L-P4', 'R47001', 'BOILER', 12, 'CONTROL ROOM, PANEL 1'),
    ('5032', 'B2-LI-01', 'L-P4', 'R47002', 'BOILER', 12, 'CONTROL ROOM, PANEL 2'),
    ('5033', 'CT-TI-01', 'L-P4', 'R47003', 'WATER',  12, 'WATER PLANT, PANEL 1'),
    ('5034', 'WT-FI-01', 'L-P4', 'R47004', 'WATER',  12, 'WATER PLANT, PANEL 1'),
    ('5035', 'WT-PT-01', 'W16',  'V48001', 'WATER',  12, 'RAW WATER PUMP 1'),
    ('5036', 'WT-PT-02', 'W16',  'V48002', 'WATER',  12, 'RAW WATER PUMP 2'),
    ('5037', 'WT-PT-03', 'W16',  'V48003', 'WATER',  12, 'FILTER 1 INLET'),
    ('5038', 'CT-PT-01', 'W16',  'V48004', 'WATER',  12, 'COOLING WATER PUMPS'),
    ('5039', 'WT-PG-01', 'G250', 'V49001', 'WATER',  6,  'RAW WATER PUMP 1'),
    ('5040', 'CT-PG-01', 'G250', 'V49002', 'WATER',  6,  'COOLING WATER PUMPS'),
    ('5101', 'F744-01',  '744',    '7411801',  'LAB', 12, null),
    ('5102', 'F744-02',  '744',    '7411802',  'LAB', 12, null),
    ('5103', 'PM-P500',  '700P29', '72501',    'LAB', 12, null),
    ('5104', 'PM-P005',  '700P03', '72502',    'LAB', 12, null),
    ('5105', 'PM-P030',  '700P05', '72503',    'LAB', 12, null),
    ('5106', 'DMM-P01',  '8060',   '88215501', 'LAB', 12, null);

insert into mt.inventory (mtag, i4201, i4202, i4203, i4204, i4206, i4209, i4228, i4229, i4240)
select mtag, asset, maker, model, description, serial,
    case when place is not null then 'D' when description like '%MODULE' then 'B' else 'C' end, 'M', months, section
from member join kind using (model)
order by mtag;

insert into mt.location (mtag, l2801, l2802, l2815)
select mtag, place, date(:now, '-2600 days'), '1'
from member where place is not null
order by mtag;

create temp table settings as
select pattern.*, member.mtag as own
from member
join kind using (model)
join mt.inventory as example on example.i4201 = kind.pattern
join mt.hvm_kv_tag_config as pattern on pattern.mtag = example.mtag;

update settings set mtag = own, neg_reading_pct = 0, pos_reading_pct = 0;
update settings set
    tp_name = kind.tp_name, input_low = kind.input_low, input_high = kind.input_high, input_type = kind.input_type,
    output_low = kind.output_low, output_high = kind.output_high, output_type = kind.output_type,
    resolution = kind.resolution, neg_span_pct = kind.span_pct, pos_span_pct = kind.span_pct, neg_units = kind.units,
    pos_units = kind.units, repetitions = 1
from member join kind using (model)
where member.mtag = settings.mtag;
alter table settings drop column own;
insert into mt.hvm_kv_tag_config select * from settings order by mtag;
