-- What statements of the workstation call or compare, and the server doesn't have. Each is one expression, which the
-- server puts in place of the call, so that indexes serve.

-- The present local time of the session, in whole seconds.
create or replace function dialect.present_moment() returns timestamp language sql stable
    as 'select date_trunc(''second'', statement_timestamp()::timestamp)';

-- Position of a part in a text, from 1; 0 without one.
create or replace function dialect.locate(text, text) returns integer language sql immutable
    as 'select strpos($1, $2)';

create or replace function dialect."isnull"(anycompatible, anycompatible) returns anycompatible language sql immutable
    as 'select coalesce($1, $2)';

create or replace function dialect.add_days(timestamp, integer) returns timestamp language sql immutable
    as 'select $1 + make_interval(days => $2)';
create or replace function dialect.subtract_days(timestamp, integer) returns timestamp language sql immutable
    as 'select $1 - make_interval(days => $2)';

create or replace function dialect.equals(text, integer) returns boolean language sql immutable
    as 'select $1 = $2::text';
create or replace function dialect.equals(integer, text) returns boolean language sql immutable
    as 'select $1::text = $2';
create or replace function dialect.differs(text, integer) returns boolean language sql immutable
    as 'select $1 <> $2::text';
create or replace function dialect.differs(integer, text) returns boolean language sql immutable
    as 'select $1::text <> $2';

do $$
declare
    sign record;
begin
    for sign in
        select *
        from (values
            ('+', 'timestamp', 'integer', 'add_days', null),
            ('-', 'timestamp', 'integer', 'subtract_days', null),
            ('=', 'text', 'integer', 'equals', ', commutator = operator(dialect.=), negator = operator(dialect.<>)'),
            ('=', 'integer', 'text', 'equals', ', commutator = operator(dialect.=), negator = operator(dialect.<>)'),
            ('<>', 'text', 'integer', 'differs', ', commutator = operator(dialect.<>), negator = operator(dialect.=)'),
            ('<>', 'integer', 'text', 'differs', ', commutator = operator(dialect.<>), negator = operator(dialect.=)'))
            as operators (name, left_type, right_type, routine, relations)
    loop
        -- A commutator or negator that is yet to come is entered without a function.
        if not exists (
            select from pg_operator
            where oprname = sign.name and oprnamespace = 'dialect'::regnamespace and oprcode <> 0
                and oprleft = sign.left_type::regtype and oprright = sign.right_type::regtype)
        then
            execute format('create operator dialect.%s (leftarg = %s, rightarg = %s, function = dialect.%I%s)', sign.name,
                sign.left_type, sign.right_type, sign.routine, sign.relations);
        end if;
    end loop;
end $$;
