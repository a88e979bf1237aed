# Copies the run-time tree into the program folder.
#
# Three kinds of files: what the program only reads is brought up to date, what operators' contacts and settings
# end up in is put there once, and everything else they keep in the folders is left alone.
set(sorvik_operator_files
    SVD.Dat DXSpott.Dat Lokator.dat Friend.dat)
set(sorvik_operator_folders
    Loggar Rapport INI FT8 Macrofiler "DX Telnet" "DX Telenet")

function(sorvik_install_data from to)
  file(GLOB_RECURSE files LIST_DIRECTORIES true RELATIVE "${from}" "${from}/*")
  foreach(file IN LISTS files)
    if(IS_DIRECTORY "${from}/${file}")
      file(MAKE_DIRECTORY "${to}/${file}")
      continue()
    endif()
    string(REGEX REPLACE "/.*" "" top "${file}")
    if(EXISTS "${to}/${file}" AND (file IN_LIST sorvik_operator_files OR top IN_LIST sorvik_operator_folders))
      continue()
    endif()
    get_filename_component(folder "${to}/${file}" DIRECTORY)
    file(COPY "${from}/${file}" DESTINATION "${folder}")
  endforeach()
endfunction()
