# Writes the present month into `file`, unless it stands there already: what depends on the file is then left alone.
string(TIMESTAMP month "%Y-%m")
file(CONFIGURE OUTPUT ${file} CONTENT "${month}\n")
