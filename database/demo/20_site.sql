-- The site: users, settings, owner groups, days off.

insert into mt.userlist (mtuser, i4240, mtlevel) values
    ('amoreau', 'MT', 0),                    -- sends work to calibrators only
    ('bkowalski', 'MT', 1),                  -- calibration technicians
    ('jdoe', 'MT', 1),
    ('cnguyen', 'MT', 4),                    -- technicians who edit procedures
    ('dsantos', 'MT', 5),
    ('efischer', 'MT', 6),                   -- configures calibration records
    ('fokafor', 'MT', 7),
    ('gpetrov', 'ABC', 4);

-- A calibration that passes ends a recall; one that fails leaves it standing.
update mt.dbconfig set b_cal_p = 1;

insert into mt.segregate (i4240) values ('ABC'), ('LAB'), ('MT'), ('PROD'), ('STD'), ('UTIL');

insert into mt.nonworkdays (dayofweek) values ('Saturday'), ('Sunday');

-- Holidays of this year and of the ten that follow.
insert into mt.holidays (holiday)
with recursive years (year) as (
    select cast(strftime('%Y', :now) as integer)
    union all
    select year + 1 from years where year < strftime('%Y', :now) + 10
)
select year || column1
from years, (values ('-01-01'), ('-05-01'), ('-12-25'), ('-12-26'))
order by 1;
