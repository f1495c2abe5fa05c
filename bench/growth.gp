# What a key costs in files of 100 to 100,000 keys: bench/growth.dat to bench/growth.png.
set terminal pngcairo size 800,500
set output "bench/growth.png"
set title "Cost of a whole call for each key of the file"
set xlabel "keys in the file"
set ylabel "nanoseconds a key"
set logscale xy
set grid
set rmargin 5
set key top right
plot for [column = 2:5] "bench/growth.dat" using 1:column with linespoints linewidth 2 title columnheader(column)
