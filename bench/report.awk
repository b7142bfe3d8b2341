# From the JSON of a benchmark program, which has one value a line, to a Markdown table.

# The value of a line `"key": value,`.
function value(    text) {
  text = $0
  sub(/^[^:]*: */, "", text)
  gsub(/^"|",?$|,$/, "", text)
  return text
}
function in_ns(time, unit) { return time * (unit == "s" ? 1e9 : unit == "ms" ? 1e6 : unit == "us" ? 1e3 : 1) }
function shown(ns) {
  if (ns >= 1e9) return sprintf("%.2f s", ns / 1e9)
  if (ns >= 1e6) return sprintf("%.3g ms", ns / 1e6)
  if (ns >= 1e3) return sprintf("%.3g us", ns / 1e3)
  return sprintf("%.3g ns", ns)
}
function plain(name) {
  sub(/\/(iterations|real_time|min_time|repeats).*/, "", name)
  return name
}

/^  "benchmarks":/ { in_runs = 1 }
!in_runs { next }
/^      "name":/ { order[++count] = name = plain(value()) }
/^      "real_time":/ { time[name] = value() }
/^      "time_unit":/ { time[name] = in_ns(time[name], value()) }
/^      "label": "beside / { label = value(); beside[name] = substr(label, 8) }
END {
  # Whose name begins with another's is its peer, not a row of its own; the longest beginning counts.
  for (i = 1; i <= count; ++i)
    for (j = 1; j <= count; ++j)
      if (i != j && index(order[i], order[j]) == 1 && substr(order[i], length(order[j]) + 1, 1) ~ /[A-Z]/) {
        peers[order[j]] = peers[order[j]] (peers[order[j]] == "" ? "" : "|") order[i]
        is_peer[order[i]] = 1
      }
  for (name in beside) is_peer[beside[name]] = 1
  print "| Operation | Time | Beside | Its time | Ours to theirs |"
  print "|---|---:|---|---:|---:|"
  for (i = 1; i <= count; ++i) {
    name = order[i]
    if (is_peer[name]) continue
    many = split(name in beside ? beside[name] : peers[name], others, "|")
    if (many == 0) printf "| %s | %s | | | |\n", name, shown(time[name])
    for (j = 1; j <= many; ++j)
      printf "| %s | %s | %s | %s | %.2f |\n", j == 1 ? name : "", j == 1 ? shown(time[name]) : "", others[j], shown(time[others[j]]), time[name] / time[others[j]]
  }
}
