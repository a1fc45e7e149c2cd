#!/bin/sh
# data_source.sh FOLDER: prints an odbc.ini with the data source "Calibration Data" for the database in FOLDER.
# The driver's own wait for a lock is kept short: the program waits by itself, and repaints meanwhile.
cat <<END
[Calibration Data]
Driver = SQLite3
Description = Calibration database of this workstation
Database = $1/kelvane.db
BigInt = 1
FKSupport = 1
JournalMode = WAL
SyncPragma = FULL
Timeout = 50
NoCreat = 1
END
