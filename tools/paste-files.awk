# Pastes C++ files into one. Their local includes get the paths of their folders.
FNR == 1 {
  folder = FILENAME
  sub(/[^\/]*$/, "", folder)
  print "// " FILENAME
}
/^#include "/ {
  header = $0
  gsub(/^#include "|".*$/, "", header)
  if ((getline line < (folder header)) >= 0) {
    close(folder header)
    print "#include \"" folder header "\""
    next
  }
}
{ print }
