# Copies the static files of the install tree from SRC to DST, each only when DST
# does not have it yet, and makes every folder of the tree.
set(_folders
  bin config config/scenarios config/presets
  "config/main/background bank one" "config/main/background bank two"
  "config/main/custom background" "config/main/random bank 1" "config/main/random bank 2"
  "config/main/random bank 3" "config/main/random bank 4" "config/main/custom random"
  config/evolve config/bwaves "config/fx/EQ Presets" "config/fx/Reverb Presets"
  config/colors config/alarms config/scheduler/savedschedules config/scheduler/scenarioplaylists
  config/mp3playlists
  "soundbanks/background sounds" "soundbanks/random sounds"
  visual/slideshow/Default visual/panoramics "zipped scenarios")
foreach(_f IN LISTS _folders)
  file(MAKE_DIRECTORY "${DST}/${_f}")
endforeach()

file(GLOB_RECURSE _files RELATIVE "${SRC}" "${SRC}/*")
foreach(_f IN LISTS _files)
  if(NOT EXISTS "${DST}/${_f}")
    get_filename_component(_dir "${DST}/${_f}" DIRECTORY)
    file(MAKE_DIRECTORY "${_dir}")
    file(COPY "${SRC}/${_f}" DESTINATION "${_dir}")
  endif()
endforeach()
