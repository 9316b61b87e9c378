# Draws the table that growth-bench writes: gnuplot -e "table='FILE'; picture='FILE'" growth.gnuplot
set terminal svg size 600,400 font "sans-serif,13" background "white"
set output picture
set datafile separator ","
set logscale xy
set format xy "10^{%T}"
set grid
set key left top

set xlabel "constraints on trays"
set ylabel "seconds"
plot table using 1:2 with linespoints linetype 3 title "ppdOpenFile", \
     table using 1:3 with linespoints linetype 1 title "model load", \
     table using 1:4 with linespoints linetype 2 title "one tray asked"
