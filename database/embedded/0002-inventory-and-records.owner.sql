-- The tables that every owner has for itself.
-- Dates are 'YYYY-MM-DD', times 'HH:MM:SS'. `mtag` is text, since statements put it in quotes and may leave it empty.

create table if not exists OWNER.inventory (
    mtag  text primary key,
    i4201 text not null unique,                                     -- asset number
    i4202 text,                                                     -- manufacturer
    i4203 text,                                                     -- model
    i4204 text,                                                     -- description
    i4206 text,                                                     -- serial number
    i4209 text,                                                     -- trace code of a standard
    i4224 text,                                                     -- recall note, emptied by a calibration
    i4225 text check (i4225 is date(i4225, '+0 days')),             -- recall date, emptied by a calibration
    i4228 text,                                                     -- unit of the interval: D, WW, M, YYYY
    i4229 integer,                                                  -- the interval's number
    i4230 text check (i4230 is date(i4230, '+0 days')),             -- last calibration
    i4231 text check (i4231 is date(i4231, '+0 days')),             -- next due
    i4240 text                                                      -- owner group
) strict;

create index if not exists OWNER.inventory_model on inventory (i4203);
create index if not exists OWNER.inventory_description on inventory (i4204);
create index if not exists OWNER.inventory_serial on inventory (i4206);
create index if not exists OWNER.inventory_group on inventory (i4240);

create table if not exists OWNER.calibration (
    ctag  integer primary key autoincrement,
    mtag  text not null,
    cdsrc text,                                                     -- what wrote the record
    c2301 text check (c2301 is date(c2301, '+0 days')),             -- calibration date
    c2302 integer,                                                  -- the interval's number
    c2303 text check (c2303 is date(c2303, '+0 days')),             -- due date
    c2306 text,                                                     -- laboratory
    c2307 text,                                                     -- technician
    c2308 text,                                                     -- state of the run
    c2309 text,                                                     -- procedure
    c2311 real,                                                     -- external temperature
    c2312 real,                                                     -- ambient temperature
    c2313 real,                                                     -- relative humidity
    c2315 text,                                                     -- place of calibration
    c2316 text,                                                     -- work order
    c2317 text,                                                     -- owner group at the time
    c2318 text,                                                     -- approved by
    c2319 text,                                                     -- note for the certificate
    c2320 text,                                                     -- test strategy
    c2323 text,                                                     -- passed: Y or N
    c2324 text,                                                     -- seal number
    c2326 text,                                                     -- remarks
    c2329 text,                                                     -- further remarks
    c2331 text,                                                     -- unit of the interval
    c2333 text check (c2333 is time(c2333, '+0 days')),             -- calibration time
    c2334 text check (c2334 is time(c2334, '+0 days')),             -- due time
    c2336 text,                                                     -- user who did the work
    c2338 text,                                                     -- user who entered it
    c2339 text,                                                     -- '1' marks the asset's current calibration
    c2350 integer,                                                  -- marginal test points
    c2352 integer,                                                  -- failed test points
    c2355 text check (c2355 is date(c2355, '+0 days')),             -- battery changed on
    c2390 text check (c2390 is date(c2390, '+0 days')),             -- entered on
    c2391 text                                                      -- entered by
) strict;

create unique index if not exists OWNER.calibration_current on calibration (mtag) where c2339 = '1';
create index if not exists OWNER.calibration_mark on calibration (mtag, c2339);
create index if not exists OWNER.calibration_moment on calibration (mtag, c2301, c2333);

-- A new calibration is the asset's current one. The mark leaves the earlier one first, so that a record that brings
-- its own mark doesn't meet it.
create trigger if not exists OWNER.calibration_unmarks_earlier before insert on calibration
begin
    update calibration set c2339 = null where mtag = new.mtag and c2339 = '1';
end;

create trigger if not exists OWNER.calibration_marks_new after insert on calibration
begin
    update calibration set c2339 = '1' where ctag = new.ctag;
end;

-- The shared tables of standards and results know a calibration by its ctag alone: each owner counts in a range of
-- its own.
insert into OWNER.sqlite_sequence (name, seq)
select 'calibration', case 'OWNER' when 'mt' then 1000000 when 'std' then 2000000 else 3000000 end
where not exists (select 1 from OWNER.sqlite_sequence where name = 'calibration');

create table if not exists OWNER.location (
    mtag  text not null,
    l2801 text,                                                     -- place
    l2802 text check (l2802 is date(l2802, '+0 days')),             -- there since
    l2815 text                                                      -- '1' marks the current place
) strict;

create index if not exists OWNER.location_mark on location (mtag, l2815);

create table if not exists OWNER.repair (
    mtag  text not null,
    r3201 text check (r3201 is date(r3201, '+0 days')),             -- date
    r3202 text,                                                     -- what was done
    r3246 text                                                      -- '1' marks the latest repair
) strict;

create index if not exists OWNER.repair_mark on repair (mtag, r3246);

create table if not exists OWNER.customers (
    mtag  text not null,
    k4601 text,                                                     -- name
    k4602 text                                                      -- telephone
) strict;

create index if not exists OWNER.customers_asset on customers (mtag);
