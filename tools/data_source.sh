#!/bin/sh
# data_source.sh FOLDER: prints an odbc.ini with the data source "Calibration Data" for the database in FOLDER.
cat <<END
[Calibration Data]
Driver = SQLite3
Description = Calibration database of this workstation
Database = $1/kelvane.db
BigInt = 1
FKSupport = 1
JournalMode = WAL
SyncPragma = FULL
Timeout = 5000
NoCreat = 1
END
