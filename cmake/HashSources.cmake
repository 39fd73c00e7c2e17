# cmake -DNAME=macro -DFILES="a b c" -DOUTPUT=header -P HashSources.cmake: a header that defines `macro` as a text that
# changes with the files.
separate_arguments(FILES)
set(all "")
foreach(file IN LISTS FILES)
    file(SHA256 "${file}" hash)
    string(APPEND all "${hash}")
endforeach()
string(SHA256 hash "${all}")
file(CONFIGURE OUTPUT "${OUTPUT}" CONTENT "#define ${NAME} \"${hash}\"\n")
