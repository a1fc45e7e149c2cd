-- kelvane.db: which version of the program has carried a step out. Of earlier steps it is not known.

alter table main.kelvane_upgrades add column program text;
