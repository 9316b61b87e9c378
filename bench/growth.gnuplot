# Draws the table that growth-bench writes: gnuplot -e "table='FILE'; picture='FILE'" growth.gnuplot
set terminal svg size 900,400 font "sans-serif,13" background "white"
set output picture
set datafile separator ","
set logscale xy
set format xy "10^{%T}"
set grid
set key left top
set multiplot layout 1,2

of(what, column) = strcol(1) eq what ? column : NaN

set xlabel "constraints on trays"
set ylabel "seconds"
plot table using (of("constraints", $2)):3 with linespoints linetype 3 title "ppdOpenFile", \
     table using (of("constraints", $2)):4 with linespoints linetype 1 title "model load", \
     table using (of("constraints", $2)):5 with linespoints linetype 2 title "one tray asked"

set xlabel "options"
plot table using (of("options", $2)):4 with linespoints linetype 1 title "model load", \
     table using (of("options", $2)):5 with linespoints linetype 2 title "one tray asked"
