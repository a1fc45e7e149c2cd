# Writes the present day into `file`, unless it stands there already: what depends on the file is then left alone.
string(TIMESTAMP day "%Y-%m-%d")
file(CONFIGURE OUTPUT ${file} CONTENT "${day}\n")
