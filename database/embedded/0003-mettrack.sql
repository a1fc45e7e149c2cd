-- mt.db: the tables of MET/TRACK that all owners share.

create table if not exists mt.userlist (
    mtuser  text primary key collate nocase,          -- login name
    i4240   text,                                     -- owner of the user's data
    mtlevel integer
) strict;

create table if not exists mt.dbconfig (
    datecode    integer,                              -- 0 MM/DD/YYYY, 1 DD/MM/YYYY, 2 YYYY/MM/DD
    version     integer,                              -- database version
    b_cal_4225  integer,                              -- 1: a calibration keeps i4225
    b_cal_4224  integer,                              -- 1: a calibration keeps i4224
    b_cal_p     integer,                              -- 1: a calibration that fails keeps both
    procedit    integer,                              -- lowest level that may edit procedures
    tracecodes  text,                                 -- trace codes, the primary standard's first
    trace_delta integer                               -- places between a standard and what it calibrates
) strict;

create table if not exists mt.nonworkdays (
    dayofweek text not null unique                    -- English day name
) strict;

create table if not exists mt.holidays (
    holiday text not null unique check (holiday is date(holiday, '+0 days'))
) strict;

-- The field dictionary. ireq and idefault count for an asset's first calibration, sreq and sdefault afterwards.
create table if not exists mt.customiz (
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

create table if not exists mt.valfield (
    fldnum text not null,
    val    text
) strict;

create index if not exists mt.valfield_list on valfield (fldnum, val);

create table if not exists mt.segregate (
    i4240 text not null unique                        -- owner group
) strict;

-- Standards used and result lines of a calibration.
create table if not exists mt.standards (
    c2430 text,                                       -- mtag of the standard
    mtag  text,
    ctag  integer
) strict;

create index if not exists mt.standards_calibration on standards (mtag, ctag);

create table if not exists mt.calresults (
    c2501 text,                                       -- the line
    c2502 integer,                                    -- its number, from 0
    mtag  text,
    ctag  integer
) strict;

create index if not exists mt.calresults_calibration on calresults (mtag, ctag, c2502);
