-- Test messages, with macros between "$" signs, and the instruments that show them.

insert into mt.hvm_kv_prompts (pname, prompt) values
    ('PERMIT', 'Get a work permit before you isolate $DB:I4201$, $U_NAM$.'),
    ('ISOLATE PRESSURE', 'Close the manifold of $DB:I4201$ and vent it. Then connect the pressure module: '
        || '$INPUTLOW$ to $INPUTHIGH$ $INPUTUNITS$.'),
    ('CONNECT RTD', 'Disconnect the $INPUTTEMPSENS$ and connect $INPUTTEMPWIRES$ wires to the calibrator '
        || '($INPUTTEMPSCALE$).'),
    ('CONNECT THERMOCOUPLE', 'Connect the $INPUTTEMPSENS$ jacks. Cold junction: $INPUTCJ$.'),
    ('LOOP POWER', 'Loop power of the calibrator: $OUTPUTLOOPPWR$. Output: $OUTPUTLOW$ to $OUTPUTHIGH$ $OUTPUTUNITS$.'),
    ('WHAT IS TESTED', '$STRATEGYNAME$: $STRATEGYPOINTS$ points, each taken $REPETITIONS$ times. '
        || 'Tolerance $SPANPOS$ / -$SPANNEG$ of span, in all $TRANSLATEDSPANTOL$.'),
    ('READ THE SCALE', 'Read the scale to $RESOLUTION$ $OUTPUTUNITS$ (+$UNITSPOS$ / -$UNITSNEG$). Input read by eye: '
        || '$INPUTINDICATED$, output read by eye: $OUTPUTINDICATED$.'),
    ('EXERCISE TOOL', 'Exercise $DB:I4201$ ($DB:I4203$) three times at $INPUTHIGH$ $INPUTUNITS$. '
        || 'Transducer $OUTPUTTRANSDUCER$, $OUTPUTTORQMEASMODE$, $OUTPUTTORQDIRECTION$, threshold $OUTPUTTHRESTORQ$.'),
    ('RETURN TO SERVICE', 'Open the manifold, check for leaks and return $DB:I4201$ to service.'),
    ('LABEL', 'Label: $TODAY$ $NOW$, $U_NAM$, $U_SEG$. Latest calibration before this one: $DB:I4230$.'),
    ('REPORT BY', 'Bring the calibrator back by $LASTDAYTHISMONTH$; the report for last month '
        || '($FIRSTDAYLASTMONTH$ to $LASTDAYLASTMONTH$) is closed.'),
    ('STORE TOOL', 'Set the tool to its lowest value before you put it away.'),
    ('NOT WRITTEN YET', null);

create temp table shown as
select column1 as asset, column2 as prompt_type, column3 as names
from (values
    ('PT-%',  'PRE', '["PERMIT", "ISOLATE PRESSURE", "LOOP POWER", "WHAT IS TESTED"]'),
    ('PT-%',  'PST', '["RETURN TO SERVICE", "LABEL"]'),
    ('TIT-20_', 'PRE', '["PERMIT", "LOOP POWER", "WHAT IS TESTED"]'),
    ('TIT-20_', 'PST', '["LABEL"]'),
    ('LI-%',  'PRE', '["READ THE SCALE"]'),
    ('LI-%',  'PST', '["LABEL"]'),
    ('TW-%',  'PRE', '["EXERCISE TOOL"]'),
    ('TW-%',  'PST', '["STORE TOOL", "REPORT BY"]'));

insert into mt.hvm_kv_proc_prompts (mtag, prompt_type, prompt_seq, pname)
select mtag, prompt_type, key, value
from shown, json_each(names), mt.inventory
where i4201 like asset
order by mtag, prompt_type desc, key;

-- Before the loop is powered, the sensor is connected.
insert into mt.hvm_kv_proc_prompts (mtag, prompt_type, prompt_seq, pname)
select mtag, 'PRE', 3, case when i4204 like '% RTD' then 'CONNECT RTD' else 'CONNECT THERMOCOUPLE' end
from mt.inventory
where i4204 like 'TEMPERATURE TRANSMITTER%';
