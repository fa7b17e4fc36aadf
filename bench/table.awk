# Joins the figures ("name,cpu time,unit" or "name,per cent") with the rows of bars.txt.

function shown(us) {
    if (us >= 10000) return sprintf("%.0f ms", us / 1000)
    if (us >= 1000) return sprintf("%.1f ms", us / 1000)
    return us >= 10 ? sprintf("%.0f µs", us) : sprintf("%.2f µs", us)
}
function trimmed(text) { gsub(/^ +| +$/, "", text); return text }

FNR == NR {
    split($0, part, ",")
    factor = part[3] == "ms" ? 1000 : part[3] == "ns" ? 0.001 : part[3] == "s" ? 1000000 : 1
    figure[part[1]] = part[2] * factor
    next
}
/^#/ || /^ *$/ { next }
!begun {
    begun = 1
    print "| What | Measured | Floor | Ratio | Bar | |"
    print "|---|---:|---:|---:|---:|---|"
}
{
    split($0, column, "|")
    what = trimmed(column[1]); name = trimmed(column[2]); floor = trimmed(column[3])
    split(trimmed(column[4]), bound, " ")
    if (!(name in figure) || (floor != "-" && !(floor in figure))) {
        print "| " what " | not measured | | | | **missing** |"
        failed = 1
        next
    }
    value = figure[name]; base = floor == "-" ? 0 : figure[floor]
    ratio = base > 0 ? sprintf("%.2f", value / base) : ""
    if (bound[1] == "ratio") { holds = value <= bound[2] * base; bar = "≤ " bound[2] " ×" }
    else if (bound[1] == "share") { holds = value <= bound[2]; bar = "≤ " bound[2] " %" }
    else {
        limit = bound[2] * (bound[3] == "ms" ? 1000 : 1)
        holds = value - base <= limit
        bar = "≤ " (base > 0 ? "floor + " : "") bound[2] " " bound[3]
    }
    measured = bound[1] == "share" ? sprintf("%.2f %%", value) : shown(value)
    print "| " what " | " measured " | " (base > 0 ? shown(base) : "") " | " ratio " | " bar " | " \
          (holds ? "holds" : "**broken**") " |"
    if (!holds) failed = 1
}
END { exit failed }
