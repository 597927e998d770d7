// The stock scenarios as plain recipes.
//
// Reading the rows:
//   Loop {bank, slot, volume, low, high, rate, balance}: bank 1 slot s is bin/s.isz,
//        bank 2 slot s is bin/(50 + s).isz.
//   Shot {bank, slot, frequency, volume}: slot s of bank 1, 2, 3 or 4 is
//        bin/(100, 50, 150 or 200 + s).raz.
//
// The main bed of every scene sits in the middle and loud enough to be heard from the
// first second; the others are spread left and right and drift slowly, so the scene
// never stands still. Rates keep mostly to 750-900: faster drifts sound like someone
// turning a knob.
//
// The random banks have slots that do not fire at their own Volume:
//   - slot 24 fires at the MP3 group level and slot 25 at the Background group level,
//     so no recipe uses either;
//   - slots 26, 27 and 28 fire at the Volume of rows 24, 25 and 26. Rows 24 and 25 are
//     never set here and stay at 220, so a 26 or 27 is written at 220 to say what is
//     heard; a 28 is written at the Volume of its row 26 (220 when row 26 is unused).
//   - bank 4 slot 22 plays the file of slot 21, so no recipe uses it either.

#include "stock_scenarios.h"

namespace brevane::stock {

const std::vector<Scenario>& scenarios() {
    static const std::vector<Scenario> all = {
        // The first-run soundscape: rain on leaves with thunder rolling in every ten
        // seconds or so from the first moments, the far and rolling kinds rather than
        // the sharp cracks, so it soothes rather than startles.
        {"Summer Storm",
         "Warm summer rain falls on the leaves while thunder rolls round the hills.\n"
         "Now and then a gust of wind stirs the trees.\n"
         "A calm storm to read by, or to fall asleep to.\n",
         90,
         85,
         {
             {1, 5, 200, 165, 235, 820, 128},   // rain on leaves
             {1, 3, 175, 135, 210, 780, 80},    // light rain
             {1, 4, 145, 100, 185, 760, 150},   // heavy rain, swelling under the rest
             {1, 12, 150, 110, 190, 850, 180},  // wind in trees
         },
         {
             {4, 2, 160, 215},   // medium storm, gritty rolls
             {4, 3, 180, 210},   // far storm
             {4, 5, 130, 210},   // four rolling swells
             {4, 6, 170, 220},   // distant, deep and smooth
             {4, 7, 200, 215},   // travelling across the sky
             {4, 9, 120, 210},   // growing rumble
             {4, 10, 130, 200},  // faraway grumble
             {4, 11, 90, 200},   // a strike a little way off
             {4, 12, 120, 180},  // treewind gust
             {4, 13, 110, 170},  // small tree gust
             {4, 15, 90, 170},   // medium gust
         }},

        {"Thunderstorm",
         "A heavy downpour drums on the streets and the wind drives it in gusts.\n"
         "Thunder crashes close by and rolls away across the sky.\n"
         "Loud and dramatic: good for shutting out the world.\n",
         95,
         95,
         {
             {1, 4, 220, 180, 245, 800, 128},  // heavy rain
             {1, 6, 170, 130, 210, 760, 90},   // rain on pavement
             {1, 9, 165, 120, 210, 850, 170},  // gusty wind
             {1, 12, 145, 100, 190, 830, 70},  // wind in trees
         },
         {
             {4, 1, 200, 220},   // near strike
             {4, 2, 220, 215},   // medium storm
             {4, 3, 150, 210},   // far storm
             {4, 4, 150, 220},   // very close strike
             {4, 5, 220, 215},   // medium strike
             {4, 7, 200, 215},   // rolling rumble
             {4, 8, 170, 220},   // near strike, long tear
             {4, 9, 200, 210},   // growing rumble
             {4, 11, 210, 210},  // a little way off
             {4, 16, 150, 200},  // stormy gust
             {4, 19, 120, 190},  // blustery gust 1
             {4, 20, 110, 190},  // blustery gust 2
         }},

        {"Gentle Rain",
         "A light, steady rain patters on the soil and the leaves.\n"
         "A soft breeze comes and goes, and once in a while thunder grumbles far away.\n"
         "Quiet enough for sleep or for long hours of work.\n",
         85,
         70,
         {
             {1, 3, 195, 160, 225, 800, 128},  // light rain
             {1, 5, 150, 110, 185, 780, 75},   // rain on leaves
             {1, 8, 140, 100, 175, 850, 185},  // light breeze
         },
         {
             {4, 10, 70, 170},  // faraway grumble
             {4, 13, 80, 160},  // small tree gust
             {1, 8, 65, 160},   // dove, slow and low
         }},

        {"Rain On A Car Roof",
         "You sit in a parked car while rain drums on the roof above you.\n"
         "Drips run off the frame and the street outside is a muffled hiss.\n"
         "Close and cosy: a good sound to sleep to.\n",
         90,
         75,
         {
             {1, 2, 210, 175, 240, 800, 128},  // rain on car roof
             {1, 6, 140, 100, 175, 760, 128},  // rain on pavement, outside
         },
         {
             {4, 3, 90, 190},    // far storm
             {4, 6, 80, 190},    // distant storm
             {4, 10, 100, 180},  // faraway grumble
         }},

        {"Hail On A Tin Roof",
         "Hailstones clatter on a tin roof while heavy rain pours down around the shed.\n"
         "The wind gusts and a storm rumbles overhead.\n"
         "A loud, bright scene that masks any noise around you.\n",
         90,
         85,
         {
             {1, 1, 205, 170, 235, 820, 128},  // hail on tin roof
             {1, 4, 160, 120, 200, 780, 90},   // heavy rain
             {1, 9, 145, 100, 185, 850, 175},  // gusty wind
         },
         {
             {4, 1, 130, 210},   // near strike
             {4, 2, 160, 210},   // medium storm
             {4, 5, 150, 210},   // medium strike
             {4, 8, 110, 210},   // near strike, long tear
             {4, 11, 140, 200},  // a little way off
             {4, 16, 110, 190},  // stormy gust
             {4, 19, 100, 180},  // blustery gust 1
         }},

        {"Rainy Street",
         "Rain splashes on the pavement and gurgles down a drain.\n"
         "A dog barks somewhere down the road and pigeons take off from a ledge.\n"
         "A town evening in the rain, for reading or quiet work.\n",
         85,
         75,
         {
             {1, 6, 200, 165, 230, 800, 128},  // rain on pavement
             {1, 3, 155, 115, 190, 780, 70},   // light rain
             {1, 8, 140, 100, 175, 860, 185},  // light breeze
         },
         {
             {4, 3, 80, 190},   // far storm
             {4, 10, 90, 180},  // faraway grumble
             {3, 11, 70, 160},  // dog barking far off
             {3, 10, 60, 160},  // a double bark nearer
             {1, 5, 80, 170},   // pigeon taking off
             {3, 4, 60, 160},   // cat meow
         }},

        {"Seaside",
         "Soft waves spill onto a sandy beach and wash back in long fizzes of foam.\n"
         "Gulls cry and laugh overhead in a light sea breeze.\n"
         "A slow, even rhythm for relaxing or falling asleep.\n",
         85,
         80,
         {
             {1, 15, 205, 170, 235, 780, 128},  // gentle ocean
             {1, 8, 145, 105, 180, 850, 80},    // light breeze
         },
         {
             {1, 10, 140, 190},  // gull
             {1, 11, 110, 180},  // seagulls
             {1, 12, 80, 170},   // a busier flock
             {4, 23, 150, 180},  // small wave on sand
             {4, 27, 120, 220},  // the gentlest wave
         }},

        {"Shingle Beach",
         "Waves break on a pebble beach and drag the stones back with a long rattle.\n"
         "A breeze blows off the sea and a few gulls pass.\n"
         "Steady and textured, good for focus or rest.\n",
         85,
         80,
         {
             {1, 13, 205, 170, 235, 790, 128},  // shingle ocean
             {1, 8, 145, 105, 180, 850, 170},   // light breeze
         },
         {
             {4, 21, 130, 200},  // shingle wave
             {4, 26, 100, 220},  // a lap draining away
             {1, 10, 90, 180},   // gull
             {1, 11, 70, 170},   // seagulls
             {1, 6, 60, 170},    // big bird lifting off
         }},

        {"Stormy Coast",
         "Big breakers boom and crash against the shore in a gale.\n"
         "Blasts of wind howl past and spray is torn off the waves.\n"
         "A wild, powerful scene that drowns out everything else.\n",
         95,
         90,
         {
             {1, 14, 220, 180, 245, 800, 128},  // rough sea
             {1, 9, 170, 125, 215, 860, 80},    // gusty wind
             {1, 7, 150, 110, 195, 830, 180},   // winter wind
         },
         {
             {4, 28, 150, 220},  // large wave
             {4, 21, 110, 200},  // shingle wave
             {4, 16, 150, 210},  // stormy gust
             {4, 17, 120, 190},  // high wind gust
             {4, 18, 110, 190},  // high wind gust 2
             {4, 19, 130, 200},  // blustery gust 1
             {4, 20, 120, 200},  // blustery gust 2
             {1, 10, 70, 170},   // a lone gull
             {4, 3, 80, 190},    // far storm
         }},

        {"Harbour",
         "Water slaps against the hulls and the quay while halyards clink on the masts.\n"
         "Gulls call over the moorings and the open sea murmurs beyond the wall.\n"
         "A peaceful waterside scene for reading or daydreaming.\n",
         85,
         80,
         {
             {1, 16, 205, 170, 235, 800, 128},  // harbor
             {1, 15, 140, 100, 175, 770, 70},   // gentle ocean beyond the wall
             {1, 8, 140, 100, 175, 850, 185},   // light breeze
         },
         {
             {1, 10, 130, 190},  // gull
             {1, 11, 120, 180},  // seagulls
             {1, 12, 90, 170},   // a busier flock
             {1, 5, 80, 170},    // pigeon taking off
             {4, 26, 110, 220},  // a lap draining at the quay
             {3, 11, 60, 160},   // dog barking far off
             {1, 22, 70, 160},   // sparrow
         }},

        {"Loon Lake",
         "Small waves lap at a quiet lake shore among the reeds.\n"
         "Loons wail and yodel across the water, and ducks and frogs call nearby.\n"
         "Calm and spacious: good for unwinding in the evening.\n",
         85,
         80,
         {
             {1, 17, 200, 165, 230, 790, 128},  // lake shore
             {2, 7, 160, 120, 195, 800, 80},    // country lake
             {1, 8, 140, 100, 175, 850, 180},   // light breeze
         },
         {
             {1, 13, 130, 200},  // loon's wail
             {1, 14, 100, 190},  // loon's tremolo
             {1, 15, 110, 200},  // loon's yodel
             {1, 6, 70, 170},    // big bird lifting off
             {4, 27, 100, 220},  // the gentlest wave
             {1, 27, 70, 220},   // kingfisher
             {3, 26, 60, 220},   // a goose honking
             {2, 26, 70, 220},   // marsh frog
         }},

        {"Forest Morning",
         "Birds sing in a leafy wood at sunrise: robin, blackbird, thrush and wren.\n"
         "A breeze moves through the bushes and doves coo further off.\n"
         "A bright, cheerful start to the day or a backdrop for work.\n",
         85,
         85,
         {
             {2, 5, 200, 165, 230, 800, 128},  // woodland birds
             {1, 11, 145, 100, 180, 840, 70},  // wind in foliage
             {1, 8, 140, 100, 170, 830, 185},  // light breeze
         },
         {
             {1, 20, 140, 190},  // robin
             {1, 21, 130, 190},  // chaffinch
             {1, 23, 120, 200},  // song thrush
             {1, 19, 110, 180},  // blue tit
             {1, 16, 100, 180},  // goldfinch
             {1, 7, 90, 180},    // dove
             {1, 5, 70, 170},    // pigeon taking off
             {1, 17, 70, 180},   // starling
         }},

        {"Pine Forest",
         "Wind sighs high in the pines while small birds call among the needles.\n"
         "A woodpecker drums and gusts sweep through the crowns now and then.\n"
         "Cool and airy, good for concentration.\n",
         85,
         80,
         {
             {2, 4, 205, 170, 235, 800, 128},  // pine forest
             {1, 12, 150, 110, 190, 850, 80},  // wind in trees
             {1, 8, 140, 100, 175, 830, 180},  // light breeze
         },
         {
             {4, 12, 110, 190},  // treewind gust
             {4, 13, 100, 180},  // small tree gust
             {1, 21, 90, 180},   // chaffinch
             {1, 19, 100, 180},  // blue tit
             {1, 16, 80, 170},   // goldfinch
             {1, 6, 70, 180},    // big bird lifting off
             {1, 9, 70, 170},    // dove
         }},

        {"Night In The Woods",
         "Crickets sing on a warm night in the woods and leaves stir in the dark.\n"
         "Owls hoot from the trees and a dog barks far away.\n"
         "A soft, steady night scene for sleep.\n",
         85,
         80,
         {
             {2, 11, 200, 165, 230, 790, 128},  // night crickets
             {1, 11, 140, 100, 170, 850, 75},   // wind in foliage
             {2, 12, 145, 105, 180, 800, 185},  // crickets close by
         },
         {
             {1, 3, 130, 200},   // tawny owl
             {1, 4, 110, 190},   // long-eared owl
             {1, 1, 60, 180},    // barn owl screech, rare
             {2, 12, 110, 180},  // tree cricket
             {2, 15, 90, 170},   // leaf cricket
             {2, 18, 90, 180},   // katydid
             {1, 6, 60, 170},    // big bird lifting off
             {3, 11, 60, 160},   // dog barking far off
         }},

        {"Campfire",
         "A campfire flickers and crackles, with a log settling now and then.\n"
         "Around it the night is full of crickets, and an owl hoots in the trees.\n"
         "Warm and relaxing, for reading or winding down before bed.\n",
         85,
         80,
         {
             {2, 16, 205, 170, 235, 820, 128},  // campfire
             {2, 17, 145, 105, 185, 800, 110},  // crackling fire, a lively edge
             {2, 11, 155, 115, 190, 790, 170},  // night crickets
             {1, 8, 140, 100, 170, 850, 70},    // light breeze
         },
         {
             {1, 3, 110, 190},   // tawny owl
             {1, 4, 90, 180},    // long-eared owl
             {2, 12, 100, 170},  // tree cricket
             {2, 16, 90, 170},   // field cricket
             {2, 18, 80, 170},   // katydid
             {3, 11, 60, 160},   // dog barking far off
         }},

        {"Fireside",
         "Dry logs crackle and pop in the hearth on a winter evening.\n"
         "Outside the wind moans round the house and gusts against the windows.\n"
         "Snug and warm, a good companion for a book.\n",
         85,
         70,
         {
             {2, 17, 200, 165, 230, 810, 128},  // crackling fire
             {2, 16, 145, 105, 180, 820, 110},  // campfire, the roar beneath
             {1, 7, 150, 110, 190, 850, 185},   // winter wind
         },
         {
             {4, 15, 90, 170},  // medium gust
             {4, 16, 80, 170},  // stormy gust
             {4, 19, 70, 170},  // blustery gust
             {3, 4, 60, 160},   // the cat by the fire
         }},

        {"Farmyard Morning",
         "Roosters crow as the farm wakes up over the meadow.\n"
         "Cows low, sheep and lambs bleat, and horses whinny in the paddock.\n"
         "A lively country morning to start the day with.\n",
         85,
         90,
         {
             {2, 6, 195, 160, 225, 800, 128},  // country meadow
             {1, 8, 140, 100, 175, 850, 75},   // light breeze
         },
         {
             {3, 6, 160, 200},   // rooster
             {3, 7, 120, 190},   // rooster across the yard
             {3, 1, 110, 190},   // cow
             {3, 3, 90, 180},    // cow, short and long
             {3, 17, 100, 180},  // flock of sheep
             {3, 13, 80, 180},   // lamb
             {3, 15, 80, 180},   // sheep
             {3, 19, 70, 180},   // horse whinny
             {3, 23, 70, 180},   // horse snort
             {3, 27, 70, 220},   // geese
             {1, 22, 110, 180},  // sparrow
             {3, 10, 60, 170},   // dog
         }},

        {"River",
         "A broad river rolls past with a steady roar and swirling eddies.\n"
         "Birds sing in the trees along the bank and a kingfisher darts by.\n"
         "A full, even sound that masks noise well: good for focus.\n",
         85,
         75,
         {
             {2, 3, 210, 175, 240, 800, 128},  // river
             {1, 11, 145, 105, 180, 850, 80},  // wind in foliage
             {2, 5, 140, 100, 170, 820, 180},  // woodland birds on the far bank
         },
         {
             {1, 27, 90, 220},  // kingfisher
             {1, 6, 70, 180},   // big bird lifting off
             {1, 23, 80, 180},  // song thrush
             {1, 21, 70, 170},  // chaffinch
             {3, 28, 60, 220},  // geese flying over
             {2, 26, 60, 220},  // marsh frog
         }},

        {"Mountain Stream",
         "A clear stream babbles over the stones on a pine-covered slope.\n"
         "Gusts pass through the trees and small birds call.\n"
         "Fresh and lively, for focus or a break in the day.\n",
         85,
         75,
         {
             {2, 2, 205, 170, 235, 800, 128},  // stream
             {2, 4, 150, 110, 185, 820, 80},   // pine forest
             {1, 8, 140, 100, 175, 850, 180},  // light breeze
         },
         {
             {4, 14, 90, 180},  // small gust
             {4, 12, 80, 180},  // treewind gust
             {1, 21, 70, 170},  // chaffinch
             {1, 16, 80, 170},  // goldfinch
             {1, 6, 60, 170},   // big bird lifting off
         }},

        {"African Jungle",
         "Hornbills honk and turacos call over the hum of insects in an African forest.\n"
         "Cicadas pulse, geckos chirp and lizards scramble up the bark.\n"
         "A rich, exotic scene for daydreaming or work.\n",
         85,
         85,
         {
             {2, 8, 205, 170, 235, 800, 128},   // african jungle
             {2, 14, 150, 110, 185, 830, 75},   // african cicada
             {1, 11, 140, 100, 170, 850, 185},  // wind in foliage
         },
         {
             {2, 7, 110, 190},   // african cicada
             {2, 20, 100, 180},  // gecko
             {2, 23, 90, 180},   // tree lizard
             {2, 22, 80, 170},   // branch climber
             {2, 27, 90, 220},   // tree frog
             {2, 19, 80, 170},   // leaf roller
             {1, 7, 70, 170},    // dove
             {1, 6, 60, 170},    // big bird lifting off
         }},

        {"Indian Jungle",
         "Koels call, peacocks cry and barbets repeat their notes in an Indian forest.\n"
         "Cicadas swell and fade, crickets chirp and a gecko clicks nearby.\n"
         "Warm and full of life, good as a backdrop for work.\n",
         85,
         85,
         {
             {2, 9, 205, 170, 235, 800, 128},   // indian jungle
             {2, 13, 150, 110, 185, 830, 180},  // indian cicada
             {1, 11, 140, 100, 170, 850, 75},   // wind in foliage
         },
         {
             {2, 10, 100, 190},  // indian cicada
             {2, 16, 110, 180},  // field cricket
             {2, 11, 80, 180},   // brown cicada
             {2, 21, 90, 180},   // gecko
             {2, 28, 80, 220},   // chorus frog
             {1, 8, 80, 170},    // dove
             {1, 18, 70, 170},   // starling
             {1, 5, 60, 170},    // pigeon taking off
         }},

        {"Rainforest",
         "Rain drips through a dense, steaming rainforest full of cicadas and tree frogs.\n"
         "Birds whistle in the canopy and thunder rumbles far away.\n"
         "Deep and immersive, for sleep or long stretches of focus.\n",
         90,
         85,
         {
             {2, 10, 210, 175, 240, 800, 128},  // rainforest
             {1, 5, 150, 110, 185, 780, 80},    // rain on leaves
             {1, 11, 140, 100, 170, 850, 180},  // wind in foliage
         },
         {
             {2, 27, 120, 220},  // tree frog
             {2, 28, 100, 220},  // chorus frog
             {2, 17, 80, 170},   // spotted katydid
             {2, 19, 90, 180},   // leaf roller
             {2, 23, 80, 180},   // tree lizard
             {2, 22, 70, 170},   // branch climber
             {2, 11, 80, 180},   // brown cicada
             {4, 6, 70, 190},    // distant storm
             {4, 10, 60, 180},   // faraway grumble
         }},

        // The skylark (bank 1 slot 28) fires at the Volume of row 26, the woodlark's, so
        // the woodlark's row carries the skylark's level; the woodlark itself fires at
        // row 24's 220.
        {"Summer Meadow",
         "A skylark sings high over a sunny meadow while bees and hoverflies drift past.\n"
         "Grasshoppers rasp in the long grass and a breeze moves through it.\n"
         "Light and peaceful, for a lazy afternoon or easy work.\n",
         85,
         85,
         {
             {2, 6, 200, 165, 230, 800, 128},  // country meadow
             {2, 12, 150, 110, 185, 820, 80},  // crickets
             {1, 8, 140, 100, 175, 850, 180},  // light breeze
         },
         {
             {2, 1, 120, 190},   // bumble bee
             {2, 3, 90, 180},    // hoverfly
             {2, 5, 80, 180},    // hoverfly passing
             {2, 14, 90, 180},   // grasshopper's flight
             {2, 13, 80, 170},   // raspy cricket
             {2, 9, 70, 170},    // grassland cicada
             {1, 28, 130, 190},  // skylark
             {1, 26, 80, 190},   // woodlark
             {1, 16, 80, 170},   // goldfinch
         }},

        {"Winter Wind",
         "A cold wind howls over bare land and roars through the trees.\n"
         "Strong gusts whistle past and die away again.\n"
         "Bleak but strangely calming, a good cover for other noise.\n",
         90,
         85,
         {
             {1, 7, 210, 175, 240, 820, 128},  // winter wind
             {1, 12, 150, 110, 190, 850, 75},  // wind in trees
             {1, 9, 140, 100, 180, 860, 185},  // gusty wind
         },
         {
             {4, 16, 130, 200},  // stormy gust
             {4, 17, 110, 190},  // high wind gust
             {4, 18, 110, 190},  // high wind gust 2
             {4, 19, 100, 190},  // blustery gust 1
             {4, 20, 100, 190},  // blustery gust 2
             {4, 15, 90, 180},   // medium gust
             {4, 12, 80, 180},   // treewind gust
             {3, 11, 60, 150},   // dog barking far off
         }},

        {"Garden Fountain",
         "A fountain splashes into its basin in a quiet garden.\n"
         "Sparrows chirp, doves coo and a bee drifts by among the flowers.\n"
         "Gentle and bright, good for reading or focused work.\n",
         80,
         75,
         {
             {2, 1, 195, 160, 225, 800, 128},  // fountain
             {2, 5, 145, 105, 180, 820, 80},   // woodland birds
             {1, 8, 140, 100, 170, 850, 180},  // light breeze
         },
         {
             {1, 22, 110, 180},  // sparrow
             {1, 7, 90, 180},    // dove
             {1, 9, 70, 170},    // dove, brisk
             {1, 20, 80, 180},   // robin
             {1, 19, 80, 170},   // blue tit
             {1, 5, 70, 170},    // pigeon taking off
             {2, 1, 70, 180},    // bumble bee
         }},
    };
    return all;
}

const PresetList& presetList() {
    static const PresetList list = {
        "Starter",
        {"Summer Storm", "Gentle Rain", "Thunderstorm", "Rain On A Car Roof", "Seaside",
         "Stormy Coast", "Loon Lake", "Forest Morning", "Summer Meadow", "Night In The Woods",
         "Campfire", "Farmyard Morning", "Mountain Stream", "Rainforest"},
    };
    return list;
}

}  // namespace brevane::stock
