-- mt.db: a key of the workstation's own tables is never null. A row without one belongs to nothing, and no screen
-- shows it.

-- Only the definitions change, not what is stored, so that they are rewritten in place and the tables stay.
pragma writable_schema = on;
update mt.sqlite_schema
set sql = replace(sql, 'mtag                      text unique,', 'mtag                      text not null unique,')
where type = 'table' and name = 'hvm_kv_tag_config';
update mt.sqlite_schema
set sql = replace(sql, 'pname  text primary key,', 'pname  text not null primary key,')
where type = 'table' and name = 'hvm_kv_prompts';
update mt.sqlite_schema
set sql = replace(replace(replace(replace(sql,
    'mtag        text,', 'mtag        text not null,'),
    'prompt_type text,', 'prompt_type text not null,'),
    'prompt_seq  integer,', 'prompt_seq  integer not null,'),
    'pname       text' || char(10), 'pname       text not null' || char(10))
where type = 'table' and name = 'hvm_kv_proc_prompts';
update mt.sqlite_schema
set sql = replace(sql, 'taskname      text,', 'taskname      text not null,')
where type = 'table' and name = 'hvm_kv_task_packages';
update mt.sqlite_schema
set sql = replace(replace(sql,
    'tptag text,', 'tptag text not null,'),
    'mtag  text' || char(10), 'mtag  text not null' || char(10))
where type = 'table' and name = 'hvm_kv_task_assets';
update mt.sqlite_schema
set sql = replace(replace(sql,
    'fldnum   text,', 'fldnum   text not null,'),
    'sequence integer' || char(10), 'sequence integer not null' || char(10))
where type = 'table' and name = 'hvm_kv_worksheetfields';
pragma writable_schema = reset;

-- A row without a key makes this fail. `is null` would find none: the engine trusts the definition by now.
update mt.hvm_kv_tag_config set mtag = mtag where typeof(mtag) = 'null';
update mt.hvm_kv_prompts set pname = pname where typeof(pname) = 'null';
update mt.hvm_kv_proc_prompts
set mtag = mtag, prompt_type = prompt_type, prompt_seq = prompt_seq, pname = pname
where 'null' in (typeof(mtag), typeof(prompt_type), typeof(prompt_seq), typeof(pname));
update mt.hvm_kv_task_packages set taskname = taskname where typeof(taskname) = 'null';
update mt.hvm_kv_task_assets set tptag = tptag, mtag = mtag where 'null' in (typeof(tptag), typeof(mtag));
update mt.hvm_kv_worksheetfields set fldnum = fldnum, sequence = sequence
where 'null' in (typeof(fldnum), typeof(sequence));
