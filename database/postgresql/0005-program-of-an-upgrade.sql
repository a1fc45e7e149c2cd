-- Which version of the program has carried a step out. Of earlier steps it is not known.

alter table kelvane.upgrades add column program text;
