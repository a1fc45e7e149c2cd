-- Predefined task packages. A package is swept away 90 days after it was made: these were "made" ten years ahead, so
-- that a demonstration does not lose them.

insert into mt.hvm_kv_task_packages
    (taskname, tptag, tptype, tp_definition, task_sql, segregate, model, description, mtuser, created_on, notes)
select column1, column2, 'PDEF', column3, column4, column5, column6, column7, 'cnguyen',
    datetime(:now, '+10 years'), column8
from (values
    ('TORQUE CREW A', 'K3V9T1A7Q5X2M8C4R6Z0W1E9Y3B5N7', 'A', null, null, null, null,
        'The wrenches of assembly line 1; due together.'),
    ('UNIT 1 SHUTDOWN', 'P8D2H6J0L4S7F1G5U9I3O2K6T0V4X8', 'A', null, null, null, null,
        'What is done at the yearly shutdown of unit 1.'),
    ('TEMPERATURE LOOPS', 'B1N5M9Q3W7E2R6T0Y4U8I1O5P9A3S7', 'S',
        'select i4201 from $U_SEG$.inventory where i4204 like ''TEMPERATURE TRANSMITTER%''', null, null, null, null),
    ('UTILITIES', 'C6V0B4N8M2L7K1J5H9G3F0D4S8A2P6', 'G', null, 'UTIL', null, null, null),
    ('CLICK 250F WRENCHES', 'Z9X3C7V1B5N0M4Q8W2E6R0T5Y9U3I7', 'M', null, null, 'CLICK 250F', null, null),
    ('TORQUE SCREWDRIVERS', 'G2H6J0K4L8P3O7I1U5Y9T4R8E2W6Q0', 'D', null, null, null, 'TORQUE SCREWDRIVER', null));

-- What a download of this morning left behind.
insert into mt.hvm_kv_task_packages (taskname, tptype, mtuser, created_on, tptag)
values ('WS7Q2K9D4M1X8B5N3V6C0Z2L7J4H1G', 'WSHT', 'jdoe', datetime(:now), 'WS7Q2K9D4M1X8B5N3V6C0Z2L7J4H1G');

insert into mt.hvm_kv_task_assets (tptag, mtag)
select tptag, mtag
from (values
    ('TORQUE CREW A', 'TW-103'), ('TORQUE CREW A', 'TW-104'), ('TORQUE CREW A', 'TW-105'), ('TORQUE CREW A', 'TW-106'),
    ('UNIT 1 SHUTDOWN', 'PT-101'), ('UNIT 1 SHUTDOWN', 'PT-102'), ('UNIT 1 SHUTDOWN', 'TIT-201'),
    ('UNIT 1 SHUTDOWN', 'IP-301'), ('UNIT 1 SHUTDOWN', 'UC-901'),
    ('WS7Q2K9D4M1X8B5N3V6C0Z2L7J4H1G', 'PT-101'), ('WS7Q2K9D4M1X8B5N3V6C0Z2L7J4H1G', 'PT-103'))
join mt.hvm_kv_task_packages on taskname = column1
join mt.inventory on i4201 = column2;

-- The standards last named for a tool are proposed the next time.
insert into mt.hvm_kv_last_standards_used (standard_mtag, entered_date, mtag)
select standard.mtag, datetime(:now, '-345 days'), tool.mtag
from (values
    ('TW-101', 'TT-0300F'), ('TW-102', 'TT-0150F'), ('TW-103', 'TT-0075F'), ('TW-104', 'TT-0300I'),
    ('TW-107', 'TT-S150'), ('TD-109', 'TT-0050I'), ('TD-110', 'TT-0010N'))
join mt.inventory as tool on tool.i4201 = column1
join mt.inventory as standard on standard.i4201 = column2;

-- Out in the plant since the day before yesterday: a documenting calibrator with two transmitters.
insert into mt.hvm_kv_task_inuse (serial_number, entered_date, mtag, tech)
select '6841207', datetime(:now, '-2 days'), mtag, 'jdoe'
from mt.inventory where i4201 in ('PT-103', 'PT-104');

insert into mt.hvm_kv_task_standards_inuse (standard_mtag, entered_date, mtag)
select standard.mtag, datetime(:now, '-2 days'), instrument.mtag
from mt.inventory as instrument, mt.inventory as standard
where instrument.i4201 in ('PT-103', 'PT-104') and standard.i4201 = 'F702-01';
