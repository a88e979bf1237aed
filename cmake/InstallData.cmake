# Copies the run-time tree into the program folder.
#
# Three kinds of files: what the program only reads is brought up to date, what operators' contacts and settings
# end up in is put there once, and everything else they keep in the folders is left alone. Cluster sites come with
# the first installation alone: one that the operator has deleted stays deleted, as long
# as he has kept any.
set(sorvik_operators "^(SVD.Dat|DXSpott.Dat|Lokator.dat|Friend.dat|(Loggar|Rapport|INI|FT8|Ljud|Macrofiler|DX Telnet|DX Telenet)/.*)$")

function(sorvik_install_data from to)
  file(GLOB had_sites "${to}/DX Telnet/*.dxt" "${to}/DX Telenet/*.dxt")
  file(GLOB_RECURSE files LIST_DIRECTORIES true RELATIVE "${from}" "${from}/*")
  foreach(file IN LISTS files)
    if(IS_DIRECTORY "${from}/${file}")
      file(MAKE_DIRECTORY "${to}/${file}")
      continue()
    endif()
    if(EXISTS "${to}/${file}" AND "${file}" MATCHES "${sorvik_operators}")
      continue()
    endif()
    if(had_sites AND "${file}" MATCHES "[.]dxt$")
      continue()
    endif()
    get_filename_component(folder "${to}/${file}" DIRECTORY)
    file(COPY "${from}/${file}" DESTINATION "${folder}")
  endforeach()
endfunction()
