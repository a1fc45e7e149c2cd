-- The inventories. Trace codes: A reference standards, B working standards, C field calibrators, D instruments.
-- Torque transducers have the lowest keys: the first standard in use with a tool is its transducer.

insert into mt.inventory (mtag, i4201, i4202, i4203, i4204, i4206, i4209, i4228, i4229, i4240) values
    -- torque transducers
    ('1001', 'TT-0300F', 'HALDEN', 'RT-300F',   'TORQUE TRANSDUCER', '20311', 'B', 'M', 12, 'LAB'),
    ('1002', 'TT-0150F', 'HALDEN', 'RT-150F',   'TORQUE TRANSDUCER', '20312', 'B', 'M', 12, 'LAB'),
    ('1003', 'TT-0075F', 'HALDEN', 'RT-75F',    'TORQUE TRANSDUCER', '20313', 'B', 'M', 12, 'LAB'),
    ('1004', 'TT-0300I', 'HALDEN', 'RT-300I',   'TORQUE TRANSDUCER', '20314', 'B', 'M', 12, 'LAB'),
    ('1005', 'TT-0050I', 'HALDEN', 'RT-50I',    'TORQUE TRANSDUCER', '20315', 'B', 'M', 12, 'LAB'),
    ('1006', 'TT-0500N', 'HALDEN', 'RT-500N',   'TORQUE TRANSDUCER', '20316', 'B', 'M', 12, 'LAB'),
    ('1007', 'TT-0010N', 'HALDEN', 'RT-10N',    'TORQUE TRANSDUCER', '20317', 'B', 'M', 12, 'LAB'),
    ('1008', 'TT-S150',  'HALDEN', 'RT-150S',   'SERIAL TORQUE TRANSDUCER', '20318', 'B', 'M', 12, 'LAB'),
    ('1009', 'TT-0200F', 'HALDEN', 'RT-200F',   'TORQUE TRANSDUCER', '20319', 'B', 'M', 12, 'LAB'),
    ('1010', 'TT-TRAIN', 'HALDEN', 'RT-100F',   'TORQUE TRANSDUCER', '20320', 'D', 'M', 12, 'LAB'),
    ('1011', 'TT-NEW',   'HALDEN', 'RT-100F',   'TORQUE TRANSDUCER', '20321', 'B', 'M', 12, 'LAB'),
    -- calibrators
    ('1101', 'TS-0001', 'CRANE', 'TORQUESTAR IVC', 'TORQUE CALIBRATOR', '48213', 'C', 'M', 12, 'LAB'),
    ('1102', 'F702-01', 'FLUKE', '702', 'DOCUMENTING CALIBRATOR', '6841207', 'C', 'YYYY', 1, 'LAB'),
    ('1103', 'F743-01', 'FLUKE', '743B', 'DOCUMENTING CALIBRATOR', '7112044', 'C', 'YYYY', 1, 'LAB'),
    -- standards of the laboratory
    ('1201', 'DWT-01',  'BERTELLI', 'DW-3000', 'DEADWEIGHT TESTER', '5521', 'A', 'YYYY', 2, 'LAB'),
    ('1202', 'SPRT-01', 'ISOPT', '25.5', 'STANDARD PLATINUM RESISTANCE THERMOMETER', '1188', 'A', 'YYYY', 1, 'LAB'),
    ('1203', 'DMM-01',  'OSTERMAN', '8508', 'REFERENCE MULTIMETER', '96120', 'A', 'M', 12, 'LAB'),
    ('1204', 'TRQ-CAL', 'HALDEN', 'BEAM-1000', 'TORQUE CALIBRATION BEAM', '401', 'A', 'YYYY', 2, 'LAB'),
    ('1205', 'PM-100',  'FLUKE', '700P06', 'PRESSURE MODULE 100 PSIG', '71204', 'B', 'M', 12, 'LAB'),
    ('1206', 'PM-030',  'FLUKE', '700P05', 'PRESSURE MODULE 30 PSIG', '71118', 'B', 'M', 12, 'LAB'),
    ('1207', 'PM-300',  'FLUKE', '700P07', 'PRESSURE MODULE 300 PSIG', '71391', 'B', 'M', 12, 'LAB'),
    ('1208', 'FC-01',   'OSTERMAN', 'FC-225', 'FREQUENCY COUNTER', '3307', 'B', 'M', 24, 'LAB'),
    ('1209', 'DMM-87V', 'FLUKE', '87V', 'DIGITAL MULTIMETER', '88210045', 'C', 'M', 12, 'LAB'),
    -- torque tools
    ('1301', 'TW-101', 'STURM', 'CLICK 250F', 'CLICK TORQUE WRENCH', 'S10101', 'D', 'M', 12, 'PROD'),
    ('1302', 'TW-102', 'STURM', 'CLICK 100F', 'CLICK TORQUE WRENCH', 'S10102', 'D', 'M', 12, 'PROD'),
    ('1303', 'TW-103', 'STURM', 'CLICK 50F',  'CLICK TORQUE WRENCH', 'S10103', 'D', 'M', 12, 'PROD'),
    ('1304', 'TW-104', 'STURM', 'CLICK 200I', 'CLICK TORQUE WRENCH', 'S10104', 'D', 'M', 12, 'PROD'),
    ('1305', 'TW-105', 'STURM', 'CLICK 120N', 'CLICK TORQUE WRENCH', 'S10105', 'D', 'M', 12, 'PROD'),
    ('1306', 'TW-106', 'STURM', 'DIGI 340N',  'DIGITAL TORQUE WRENCH', 'S20106', 'D', 'M', 12, 'PROD'),
    ('1307', 'TW-107', 'STURM', 'DIGI 100F',  'DIGITAL TORQUE WRENCH', 'S20107', 'D', 'M', 12, 'PROD'),
    ('1308', 'TW-108', 'STURM', 'DIAL 600F',  'DIAL TORQUE WRENCH', 'S30108', 'D', 'M', 12, 'PROD'),
    ('1309', 'TD-109', 'STURM', 'DRV 40I', 'TORQUE SCREWDRIVER', 'S40109', 'D', 'M', 6, 'PROD'),
    ('1310', 'TD-110', 'STURM', 'DIGI 5N', 'TORQUE SCREWDRIVER', 'S40110', 'D', 'M', 6, 'PROD'),
    ('1311', 'TW-111', 'STURM', 'CLICK 250F', 'CLICK TORQUE WRENCH', 'S10111', 'D', 'M', 12, 'PROD'),
    ('1312', 'TW-112', 'STURM', 'CLICK 100F', 'CLICK TORQUE WRENCH', 'S10112', 'D', 'M', 12, 'PROD'),
    ('1313', 'PW-113', 'STURM', 'PULSE 80N',  'PULSE TORQUE WRENCH', 'S50113', 'D', 'D', 180, 'PROD'),
    ('1314', 'HW-701', 'STURM', 'HYDRA 5000', 'HYDRAULIC TORQUE WRENCH', 'S60701', 'D', 'M', 12, 'PROD'),
    ('1315', 'TQ-702', 'STURM', 'REACT 100N', 'REACTION TORQUE SENSOR', 'S70702', 'D', 'M', 12, 'PROD'),
    -- pressure
    ('1401', 'PT-101', 'VALTEC', 'P100', 'PRESSURE TRANSMITTER', 'V88101', 'D', 'M', 12, 'PROD'),
    ('1402', 'PT-102', 'VALTEC', 'P300', 'PRESSURE TRANSMITTER', 'V88102', 'D', 'M', 12, 'PROD'),
    ('1403', 'PT-103', 'VALTEC', 'D150', 'DIFFERENTIAL PRESSURE TRANSMITTER', 'V88103', 'D', 'M', 6, 'PROD'),
    ('1404', 'PT-104', 'VALTEC', 'P250K', 'PRESSURE TRANSMITTER', 'V88104', 'D', 'M', 12, 'PROD'),
    ('1405', 'PT-105', 'VALTEC', 'P10B', 'PRESSURE TRANSMITTER', 'V88105', 'D', 'WW', 26, 'UTIL'),
    ('1406', 'PT-106', 'VALTEC', 'C60', 'COMPOUND PRESSURE TRANSMITTER', 'V88106', 'D', 'WW', 26, 'UTIL'),
    ('1407', 'PT-107', 'VALTEC', 'P1000', 'PRESSURE TRANSMITTER', 'V88107', 'D', 'M', 12, 'PROD'),
    ('1408', 'PT-108', 'VALTEC', 'V30', 'VACUUM TRANSMITTER', 'V88108', 'D', 'M', 12, 'PROD'),
    ('1409', 'LT-10''COL', 'VALTEC', 'D120', 'LEVEL TRANSMITTER', 'V88109', 'D', 'M', 12, 'PROD'),
    -- temperature
    ('1501', 'TIT-201', 'VALTEC', 'T-RTD', 'TEMPERATURE TRANSMITTER RTD', 'V99201', 'D', 'M', 12, 'PROD'),
    ('1502', 'TIT-202', 'VALTEC', 'T-RTD', 'TEMPERATURE TRANSMITTER RTD', 'V99202', 'D', 'M', 12, 'PROD'),
    ('1503', 'TIT-203', 'VALTEC', 'T-RTD', 'TEMPERATURE TRANSMITTER RTD', 'V99203', 'D', 'M', 12, 'PROD'),
    ('1504', 'TIT-204', 'VALTEC', 'T-RTD', 'TEMPERATURE TRANSMITTER RTD', 'V99204', 'D', 'M', 12, 'PROD'),
    ('1505', 'TIT-205', 'VALTEC', 'T-TC', 'TEMPERATURE TRANSMITTER TC', 'V99205', 'D', 'M', 12, 'UTIL'),
    ('1506', 'TIT-206', 'VALTEC', 'T-TC', 'TEMPERATURE TRANSMITTER TC', 'V99206', 'D', 'M', 12, 'PROD'),
    ('1507', 'TIT-207', 'VALTEC', 'T-TC', 'TEMPERATURE TRANSMITTER TC', 'V99207', 'D', 'M', 3, 'PROD'),
    -- converters and loop indicators
    ('1601', 'IP-301', 'ROSWELL', 'IP-15', 'I/P CONVERTER', 'R3301', 'D', 'M', 12, 'PROD'),
    ('1602', 'IP-302', 'ROSWELL', 'IP-103K', 'I/P CONVERTER', 'R3302', 'D', 'M', 12, 'PROD'),
    ('1603', 'IP-303', 'ROSWELL', 'IP-1B', 'I/P CONVERTER', 'R3303', 'D', 'M', 12, 'PROD'),
    ('1604', 'PI-304', 'ROSWELL', 'PI-15', 'P/I CONVERTER', 'R3304', 'D', 'M', 12, 'PROD'),
    ('1605', 'LI-401', 'ROSWELL', 'L-PCT', 'LOOP INDICATOR', 'R4401', 'D', 'M', 12, 'PROD'),
    ('1606', 'LI-402', 'ROSWELL', 'L-ENG', 'LOOP INDICATOR', 'R4402', 'D', 'M', 12, 'PROD'),
    ('1607', 'LI-403', 'ROSWELL', 'L-ENG', 'LOOP INDICATOR', 'R4403', 'D', 'M', 12, 'PROD'),
    ('1608', 'LI-404', 'ROSWELL', 'L-ENG', 'LOOP INDICATOR', 'R4404', 'D', 'M', 12, 'PROD'),
    -- frequency and voltage
    ('1701', 'FT-501', 'ROSWELL', 'F-1000', 'FREQUENCY TRANSMITTER', 'R5501', 'D', 'M', 12, 'UTIL'),
    ('1702', 'FI-502', 'ROSWELL', 'FI-10K', 'FREQUENCY INDICATOR', 'R5502', 'D', 'M', 12, 'PROD'),
    ('1703', 'VF-503', 'ROSWELL', 'VF-10', 'VOLTAGE TO FREQUENCY CONVERTER', 'R5503', 'D', 'M', 12, 'PROD'),
    ('1704', 'VT-601', 'ROSWELL', 'VT-50M', 'VOLTAGE TRANSMITTER', 'R6601', 'D', 'M', 12, 'PROD'),
    ('1705', 'VI-602', 'ROSWELL', 'VI-10', 'PANEL VOLTMETER', 'R6602', 'D', 'M', 24, 'PROD'),
    ('1706', 'SC-603', 'ROSWELL', 'SC-5', 'SIGNAL CONDITIONER', 'R6603', 'D', 'M', 12, 'PROD'),
    ('1707', 'AC-604', 'ROSWELL', 'AC-120', 'AC VOLTAGE TRANSDUCER', 'R6604', 'D', 'M', 12, 'PROD'),
    -- others
    ('1801', 'PG-801',  'VALTEC', 'G200', 'PRESSURE GAUGE', 'V80801', 'D', 'M', 12, 'UTIL'),
    ('1802', 'TCS-802', 'ROSWELL', 'TCS-K', 'THERMOCOUPLE ISOLATOR', 'R8802', 'D', 'M', 12, 'PROD'),
    ('1803', 'RI-803',  'ROSWELL', 'R-400', 'RESISTANCE TRANSMITTER', 'R8803', 'D', 'M', 12, 'PROD'),
    ('1804', 'SG-804',  'ROSWELL', 'SG-20', 'SIGNAL GENERATOR', 'R8804', 'D', 'M', 12, 'PROD'),
    ('1805', 'AN-805',  'ROSWELL', 'O2-25', 'OXYGEN ANALYZER', 'R8805', 'D', 'D', 90, 'PROD'),
    -- not ready for work
    ('1901', 'UC-901', 'VALTEC', 'P100', 'PRESSURE TRANSMITTER', 'V89901', 'D', 'M', 12, 'PROD'),
    ('1902', 'UC-902', 'VALTEC', 'P100', 'PRESSURE TRANSMITTER', 'V89902', 'D', 'M', 12, 'PROD'),
    ('1903', 'UC-903', 'VALTEC', 'P100', 'PRESSURE TRANSMITTER', null, null, 'M', 12, 'PROD');

-- Tools that were called in for calibration.
update mt.inventory set i4224 = 'RECALLED FOR CALIBRATION', i4225 = date(:now, '-3 days')
where i4201 in ('TW-101', 'TW-102', 'TW-103', 'TW-104', 'TW-105', 'TW-106');

insert into mt.location (mtag, l2801, l2802, l2815) values
    ('1301', 'TOOL CRIB 2', date(:now, '-900 days'), null),
    ('1301', 'ASSEMBLY LINE 1', date(:now, '-400 days'), '1'),
    ('1401', 'UNIT 1 HEADER', date(:now, '-1200 days'), '1'),
    ('1409', 'CONDENSATE TANK', date(:now, '-1200 days'), '1');

insert into mt.repair (mtag, r3201, r3202, r3246) values
    ('1301', date(:now, '-700 days'), 'SPRING REPLACED', null),
    ('1301', date(:now, '-360 days'), 'RATCHET HEAD CLEANED', '1');

insert into mt.customers (mtag, k4601, k4602) values
    ('1301', 'ASSEMBLY', '4410'),
    ('1401', 'UNIT 1 OPERATIONS', '4471');

-- The standards that other owners use.
insert into std.inventory (mtag, i4201, i4202, i4203, i4204, i4206, i4209, i4228, i4229, i4240) values
    ('2001', 'STD-TT-0150F', 'HALDEN', 'RT-150F', 'TORQUE TRANSDUCER', '20412', 'B', 'M', 12, 'STD'),
    ('2002', 'STD-REF-1', 'BERTELLI', 'DW-1000', 'DEADWEIGHT TESTER', '5530', 'B', 'M', 12, 'STD'),
    ('2003', 'STD-OLD-1', 'BERTELLI', 'DW-1000', 'DEADWEIGHT TESTER', '5531', 'B', 'M', 12, 'STD'),
    ('2004', 'STD-LOW-1', 'VALTEC', 'G300', 'TEST GAUGE', '5532', 'D', 'M', 12, 'STD');

-- A group with an inventory of its own. It keeps a row for each standard that it uses, under the same number.
insert into abc.inventory (mtag, i4201, i4202, i4203, i4204, i4206, i4209, i4228, i4229, i4240) values
    ('3001', 'STD-TT-0150F', 'HALDEN', 'RT-150F', 'TORQUE TRANSDUCER', '20412', 'B', 'M', 12, 'STD'),
    ('3002', 'STD-REF-1', 'BERTELLI', 'DW-1000', 'DEADWEIGHT TESTER', '5530', 'B', 'M', 12, 'STD'),
    ('3003', 'STD-OLD-1', 'BERTELLI', 'DW-1000', 'DEADWEIGHT TESTER', '5531', 'B', 'M', 12, 'STD'),
    ('3004', 'STD-LOW-1', 'VALTEC', 'G300', 'TEST GAUGE', '5532', 'D', 'M', 12, 'STD'),
    ('3101', 'TS-0002', 'CRANE', 'TORQUESTAR IVC', 'TORQUE CALIBRATOR', '48215', 'C', 'M', 12, 'ABC'),
    ('3102', 'F702-11', 'FLUKE', '702', 'DOCUMENTING CALIBRATOR', '6841355', 'C', 'YYYY', 1, 'ABC'),
    ('3301', 'ABC-TW-1', 'STURM', 'CLICK 100F', 'CLICK TORQUE WRENCH', 'S18801', 'D', 'M', 12, 'ABC'),
    ('3401', 'ABC-PT-1', 'VALTEC', 'P100', 'PRESSURE TRANSMITTER', 'V87701', 'D', 'M', 12, 'ABC');
