# Result template of the demonstration.
# The body line at the end tells at which column each value of a result line begins. A line has 120 columns.
#
#    TN$  point          FN$  nominal       FVA$ applied       FRE$ reading
#    TT$  tolerance      DE$  deviation     ET$  percent       TU$  units
#    CO$  comment        FLL$ low limit     FUL$ high limit    TR$  verdict

split$(120)
rslt_columns = 120
rm$ point, nominal, applied, reading, tolerance, deviation, percent, units, comment, limits, verdict

# A value that ends in the first text is printed with the second one instead; both are of one length, so that the columns stay.
subst$(CO,"NOTIFY USER","OUT OF TOL.")
subst$(TU,"degC","C   ")
subst$(TU,"degF","F   ")

TN$ FN$           FVA$          FRE$          TT$         DE$          ET$  TU$ CO$         FLL$        FUL$        TR$
