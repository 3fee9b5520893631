# SPDX-License-Identifier: MIT
#
# gnuplot -c growth.gp TABLE IMAGE WHAT: draws a table of bench/growth.cpp as an SVG image, over the logarithms of both axes, and
# prints the slope of each curve: the exponent of its growth, by least squares.
table = ARG1
set datafile separator tab
set terminal svg size 860,520 font "DejaVu Sans,Helvetica,sans-serif" fontscale 1.15 linewidth 1.5 background "#ffffff"
set output ARG2
set print "-"
set logscale xy
set rmargin 5
set xlabel ARG3
set ylabel "time (ms of the processor)"
set format xy "%.10g"
set border 3 linecolor "#666666"
set tics nomirror textcolor "#333333"
set grid linetype 1 linewidth 0.5 linecolor "#dddddd"
set key outside top center horizontal maxcols 1 Left reverse samplen 2
set style data linespoints

# Okabe and Ito's colours, which the colour-blind tell apart, and a mark of its own for each.
array colors[5] = ["#0072b2", "#d55e00", "#009e73", "#555555", "#cc79a7"]
array marks[5] = [7, 5, 9, 4, 13]

curves = int(system("head -n 1 '" . table . "' | tr -cd '\\t' | wc -c"))
name(i) = system("head -n 1 '" . table . "' | cut -f " . (i + 1))
array slopes[curves]
do for [i = 1:curves] {
    stats table using (log($1)):(log(column(i + 1))) every ::1 nooutput
    slopes[i] = floor(STATS_slope * 100 + 0.5) / 100.0 # no -0.00
    print sprintf("slope %5.2f  %s", slopes[i], name(i))
}
# After stats, which would count nothing outside.
set xrange [0.7:*]
set yrange [0.01:1000]
plot for [i = 1:curves] table using 1:(column(i + 1)) every ::1 \
    linecolor rgb colors[i] linewidth 1.5 pointtype marks[i] pointsize 0.6 title sprintf("%s: slope %.2f", name(i), slopes[i])
