-- Earlier calibrations. Days are counted from the day on which the data is made, so that what is in calibration today
-- stays so. The database numbers each record and makes it the asset's current one.

-- The length of an interval as the engine's date arithmetic writes it, ahead and back.
create temp table step as
select column1 as unit, column2 as days, column3 as part
from (values ('D', 1, ' days'), ('WW', 7, ' days'), ('M', 1, ' months'), ('YYYY', 1, ' years'));

-- Standards and calibrators are good for another 200 days; three are overdue, and PM-300 has never been calibrated.
create temp table due as
select 'mt' as owner, mtag, i4228, i4229, case when i4201 in ('TT-0200F', 'PM-030') then '-15 days' else '+200 days' end
    as shift
from mt.inventory
where i4240 = 'LAB' and i4201 not in ('TT-NEW', 'PM-300')
union all
select 'std', mtag, i4228, i4229, case when i4201 = 'STD-OLD-1' then '-15 days' else '+200 days' end
from std.inventory
union all
select 'abc', mtag, i4228, i4229, '+200 days'
from abc.inventory
where i4209 = 'C';

create temp table record as
select owner, mtag, 'MTK' as cdsrc,
    date(:now, shift, '-' || (i4229 * days) || part) as c2301, i4229 as c2302,
    date(:now, shift) as c2303, 'NATIONAL LABORATORY' as c2306, 'rvargas' as c2307,
    'FOUND-LEFT' as c2308, 'CERTIFICATE' as c2309, 'VENDOR' as c2315, 'Y' as c2323, i4228 as c2331,
    '10:15:00' as c2333, '12:00:00' as c2334, 0 as c2350, 0 as c2352
from due, step
where unit = i4228;

-- Most instruments were calibrated one interval ago and are due within three weeks. The tools and transmitters left
-- out here have no record yet.
insert into record
select 'mt', mtag, 'KVN', date(:now, '+20 days', '-' || (i4229 * days) || part), i4229,
    date(:now, '+20 days'), 'IN-HOUSE', 'bkowalski', 'FOUND-LEFT',
    case when i4204 like '%TORQUE%' then 'KP-TORQUE-02' else 'KP-LOOP-01' end, 'LAB', 'Y', i4228, '14:30:00',
    '14:30:00', 0, 0
from mt.inventory, step
where unit = i4228 and i4209 = 'D' and i4240 <> 'LAB'
    and i4201 not in ('TW-103', 'TW-105', 'TW-107', 'TD-110', 'PT-108', 'TIT-207', 'UC-901', 'UC-902');

-- Two with a longer history; TW-104 had failed before.
insert into record
select owner, mtag, cdsrc, date(c2301, back), c2302, date(case passed when 'Y' then c2303 else c2301 end, back), c2306,
    'jdoe', case passed when 'Y' then c2308 else 'AS-FOUND' end, c2309, c2315, passed, c2331, '09:05:00',
    '09:05:00', marginal, failed
from record, (
    select column1 as asset, column2 as back, column3 as passed, column4 as marginal, column5 as failed
    from (values ('1401', '-365 days', 'Y', 0, 0), ('1401', '-730 days', 'Y', 1, 0), ('1304', '-365 days', 'N', 0, 1)))
where mtag = asset and owner = 'mt';

insert into mt.calibration
    (mtag, cdsrc, c2301, c2302, c2303, c2306, c2307, c2308, c2309, c2315, c2323, c2331, c2333, c2334, c2350, c2352)
select mtag, cdsrc, c2301, c2302, c2303, c2306, c2307, c2308, c2309, c2315, c2323, c2331, c2333, c2334, c2350, c2352
from record where owner = 'mt' order by c2301, mtag;

insert into std.calibration
    (mtag, cdsrc, c2301, c2302, c2303, c2306, c2307, c2308, c2309, c2315, c2323, c2331, c2333, c2334, c2350, c2352)
select mtag, cdsrc, c2301, c2302, c2303, c2306, c2307, c2308, c2309, c2315, c2323, c2331, c2333, c2334, c2350, c2352
from record where owner = 'std' order by c2301, mtag;

insert into abc.calibration
    (mtag, cdsrc, c2301, c2302, c2303, c2306, c2307, c2308, c2309, c2315, c2323, c2331, c2333, c2334, c2350, c2352)
select mtag, cdsrc, c2301, c2302, c2303, c2306, c2307, c2308, c2309, c2315, c2323, c2331, c2333, c2334, c2350, c2352
from record where owner = 'abc' order by c2301, mtag;

update mt.calibration set c2312 = 21.5, c2313 = 45, c2317 = 'MT', c2336 = c2307, c2338 = c2307, c2390 = c2301, c2391 = c2307
where cdsrc = 'KVN';
update mt.calibration set c2320 = 'TORQUE 20-60-100' where mtag = '1301';
update mt.calibration set c2320 = '5 POINT UP' where mtag = '1401';

update mt.inventory set (i4230, i4231) =
    (select c2301, c2303 from mt.calibration where c2339 = '1' and calibration.mtag = inventory.mtag);

-- The standards and the result lines of two current records, laid out as the result template says.
insert into mt.standards (c2430, mtag, ctag)
select column2, column1, ctag
from (values ('1301', '1001'), ('1301', '1101'), ('1401', '1102'), ('1401', '1205')), mt.calibration
where calibration.mtag = column1 and c2339 = '1';

create temp table reading as
select column1 as asset, column2 as line, column3 as applied, column4 as nominal, column5 as measured, column6 as tolerance
from (values
    ('1301', 0, 50.0, 50.0, 50.6, 2.0),
    ('1301', 1, 150.0, 150.0, 150.9, 6.0),
    ('1301', 2, 250.0, 250.0, 251.2, 10.0),
    ('1401', 0, 0.0, 4.0, 4.005, 0.04),
    ('1401', 1, 25.0, 8.0, 8.008, 0.04),
    ('1401', 2, 50.0, 12.0, 12.01, 0.04),
    ('1401', 3, 75.0, 16.0, 16.011, 0.04),
    ('1401', 4, 100.0, 20.0, 20.006, 0.04));

create temp table shape as
select column1 as asset, column2 as places, column3 as applied_unit, column4 as unit
from (values ('1301', 1, 'ft/lb', 'ft/lb'), ('1401', 3, 'psig', 'mA'));

insert into mt.calresults (c2501, c2502, mtag, ctag)
select printf('%3d %-13s %-13s %-13s %-11s %-12s %-4s %-3s %-11s %-11s %-11s %-4s', line + 1,
        printf(' %.*f%s', places, nominal, unit), printf(' %.*f%s', places, applied, applied_unit),
        printf(' %.*f%s', places, measured, unit), printf('%.*f%s', places, tolerance, unit),
        printf('%.*f%s', places, measured - nominal, unit), printf('%3.0f', (measured - nominal) / tolerance * 100), '', '',
        printf(' %.*f', places, nominal - tolerance), printf(' %.*f', places, nominal + tolerance), 'PASS'),
    line, mtag, ctag
from reading join shape using (asset) join mt.calibration on calibration.mtag = asset
where c2339 = '1'
order by asset, line;
