-- Asset numbers compare without case. Where two differ in case only, they are named, and this fails.

select 'OWNER.db holds asset numbers that differ in case only; rename all but one: ' || group_concat(i4201, ' ')
from OWNER.inventory
group by lower(i4201)
having count(*) > 1;

pragma writable_schema = on;
update OWNER.sqlite_schema
set sql = replace(sql, 'i4201 text not null unique,', 'i4201 text not null unique collate nocase,')
where type = 'table' and name = 'inventory';
pragma writable_schema = reset;
reindex OWNER.inventory;
