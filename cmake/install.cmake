# The component "game" puts the program and its data tree into a game directory. What the program or
# the user may have changed there (journal, selection, releases) is never replaced; the program
# itself, the help page and the About text are brought up to date. Names are matched whatever their
# case, as the program does.
set(VEXILLUM_DATA ${CMAKE_CURRENT_SOURCE_DIR}/data)

if(VEXILLUM_WINDOWS)
  install(TARGETS vexillum RUNTIME DESTINATION . COMPONENT game)
endif()
install(CODE "set(data \"${VEXILLUM_DATA}\")" COMPONENT game)
install(CODE [[
  # The path of an entry in the spelling that the disk has.
  function(find_entry result folder path)
    string(REPLACE "/" ";" parts "${path}")
    foreach(part IN LISTS parts)
      set(found "${part}")
      if(NOT EXISTS "${folder}/${part}")
        string(TOLOWER "${part}" wanted)
        file(GLOB names LIST_DIRECTORIES true RELATIVE "${folder}" "${folder}/*")
        foreach(name IN LISTS names)
          string(TOLOWER "${name}" lowered)
          if(lowered STREQUAL wanted)
            set(found "${name}")
          endif()
        endforeach()
      endif()
      set(folder "${folder}/${found}")
    endforeach()
    set(${result} "${folder}" PARENT_SCOPE)
  endfunction()

  set(gameDirectory "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
  file(GLOB_RECURSE files RELATIVE "${data}" "${data}/*")
  foreach(file IN LISTS files)
    find_entry(target "${gameDirectory}" "Vexillum/${file}")
    if(EXISTS "${target}" AND NOT file MATCHES "^VXL-(Help|Misc|Trlx)/")
      message(STATUS "Kept: ${target}")
      continue()
    endif()
    get_filename_component(folder "${target}" DIRECTORY)
    file(INSTALL DESTINATION "${folder}" TYPE FILE FILES "${data}/${file}")
  endforeach()
]] COMPONENT game)
