-- Test strategies: percent of the input range, in the order in which they are taken.

create temp table strategy as
select column1 as name, column2 as points
from (values
    ('2 POINT UP', '[0, 100]'),
    ('3 POINT UP', '[0, 50, 100]'),
    ('5 POINT UP', '[0, 25, 50, 75, 100]'),
    ('9 POINT UP/DOWN', '[0, 25, 50, 75, 100, 75, 50, 25, 0]'),
    ('11 POINT UP', '[0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100]'),
    ('FREQUENCY 10-50-90', '[10, 50, 90]'),
    ('TORQUE 100', '[100]'),
    ('TORQUE 20-60-100', '[20, 60, 100]'),
    ('TORQUE 20-40-60-80-100', '[20, 40, 60, 80, 100]'));

insert into mt.hvm_kv_proc_points (tp_name, test_point_seq, test_point_pct)
select name, key, value from strategy, json_each(points);
