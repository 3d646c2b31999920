# Helpers shared by the build files.

# Sources of one folder, recursively, re-globbed when files are added.
function(tv_glob out dir)
  file(GLOB_RECURSE _files CONFIGURE_DEPENDS "${dir}/*.cpp")
  set(${out} ${_files} PARENT_SCOPE)
endfunction()

# The subfolders (areas) of a folder that hold sources.
function(tv_areas out dir)
  file(GLOB _children RELATIVE "${dir}" "${dir}/*")
  set(_areas)
  foreach(_c ${_children})
    if(IS_DIRECTORY "${dir}/${_c}")
      file(GLOB_RECURSE _any CONFIGURE_DEPENDS "${dir}/${_c}/*.cpp")
      if(_any)
        list(APPEND _areas ${_c})
      endif()
    endif()
  endforeach()
  set(${out} ${_areas} PARENT_SCOPE)
endfunction()
