// The creatures' calls: one function per kind of call, each a fresh take drawn from the
// Rng it is given, so that two calls of one animal are never the same. The random banks
// lay them out as one-shots; the living loops scatter them over their beds. Every call
// starts at its onset and has a unit peak; silence and distance are the caller's.
#pragma once

#include "voices.h"

namespace brevane::soundgen::calls {

// ---- birds (recipes_birds.cpp) ---------------------------------------------------------

// A tawny owl's hoot: a long "hooo", a pause, a quavering "hu-hu-hooooo". The pause in
// seconds.
Buffer tawnyHoot(Rng& r, double pause);
// One soft low "oo" of a long-eared owl.
Buffer longEaredHoot(Rng& r);
// A barn owl's drawn-out hissing screech, `seconds` long.
Buffer barnOwlScreech(Rng& r, double seconds);
// A bird taking off: `beats` wing strokes at `rate` a second, `size` 0 (small) to 1 (big).
Buffer wingFlaps(Rng& r, int beats, double rate, double size);
// A collared dove's "coo-COOO-cuk"; `stretch` draws the notes out.
Buffer doveCoo(Rng& r, double pitch, double stretch);
// A gull's "kyow", falling from `hz`.
Buffer gullCry(Rng& r, double hz, double seconds);
// A gull's laughing run of short "ha"s.
Buffer gullLaugh(Rng& r, double hz, int count);
// A loon's wail, its tremolo and its yodel.
Buffer loonWail(Rng& r);
Buffer loonTremolo(Rng& r);
Buffer loonYodel(Rng& r);
// A goldfinch's liquid twittering, `seconds` long.
Buffer finchTwitter(Rng& r, double seconds);
// A starling's medley of whistles, clicks, rattles and wheezes, `seconds` long.
Buffer starlingMedley(Rng& r, double seconds);
// A blue tit's "tsee-tsee-tsu-hu-hu-hu".
Buffer bluetitSong(Rng& r);
// One phrase of a robin's wistful warble.
Buffer robinPhrase(Rng& r);
// A chaffinch's falling, quickening trill with its end flourish.
Buffer chaffinchSong(Rng& r);
// A house sparrow's chirp.
Buffer sparrowChirp(Rng& r);
// A song thrush's phrase, sung `repeats` times.
Buffer thrushPhrase(Rng& r, int repeats);
// A woodlark's falling "lu-lu-lu" run.
Buffer woodlarkRun(Rng& r);
// A skylark's unbroken warbling run, `seconds` long.
Buffer skylarkRun(Rng& r, double seconds);
// A kingfisher's shrill "chee".
Buffer kingfisherCall(Rng& r);
// A blackbird's fluting phrase with its squeaky end.
Buffer blackbirdPhrase(Rng& r);
// A wren's loud, fast rattling song.
Buffer wrenSong(Rng& r);
// A coal tit's "teechu teechu teechu".
Buffer coalTitSong(Rng& r);
// A goldcrest's very high cycling song.
Buffer goldcrestSong(Rng& r);
// A woodpecker drumming on a dead branch.
Buffer woodpeckerDrum(Rng& r);
// A crow's harsh "kraa" (calls in a row).
Buffer crowCaw(Rng& r, int count);
// A cuckoo's "cuck-oo", `count` times.
Buffer cuckooCall(Rng& r, int count);
// A duck's quacks and a coot's "kowk".
Buffer duckQuacks(Rng& r, int count);
Buffer cootCall(Rng& r);
// A reed warbler's chattering, `seconds` long.
Buffer reedWarbler(Rng& r, double seconds);
// The birds of warm forests: an Asian koel's rising "ko-el" series, a peacock's cry,
// a barbet's "kutroo" run, a hornbill's honks, a turaco's "kow-kow", a piha's
// "wee-WEE-oo", the dripping notes of a bulbul.
Buffer koelCall(Rng& r, int count);
Buffer peacockCry(Rng& r);
Buffer barbetCall(Rng& r, int count);
Buffer hornbillHonks(Rng& r, int count);
Buffer turacoCall(Rng& r);
Buffer pihaCall(Rng& r);
Buffer bulbulPhrase(Rng& r);

// ---- insects, lizards and frogs (recipes_insects.cpp) ---------------------------------

// A flying insect: its wings' buzz moved along a path. `nearness` (0 far, 1 close, over the
// flight's own time) sets level, brightness and the Doppler shift of its coming and going;
// `darts` sudden surges of the wingbeat as it changes place.
struct Flight {
    double seconds = 4.0;
    double wingHz = 150.0;
    double sharpness = 0.85;
    double bodyHz = 900.0;
    double wobble = 0.02;
    int darts = 0;
    Curve nearness;
};
Buffer flight(Rng& r, const Flight& f);

// One chirp of a cricket: `pulses` tone pulses at `carrier` Hz, `pulseRate` a second,
// each `pulseLength` seconds and falling a little in pitch.
struct Cricket {
    double carrier = 4500.0;
    int pulses = 3;
    double pulseRate = 30.0;
    double pulseLength = 0.018;
    double noise = 0.05;  // scrape noise beside the tone
};
Buffer cricketChirp(Rng& r, const Cricket& c);

// A cicada's song: tymbal clicks `clickHz` a second ringing the body at `carrier` Hz, with
// the song's level along `level`, the click rate scaled along `pace` and the body's ring
// along `glide` (all over the song's own time); `rasp` adds hiss in the band.
struct Cicada {
    double seconds = 5.0;
    double carrier = 5000.0;
    double clickHz = 300.0;
    Curve level;
    Curve pace;
    Curve glide;
    double rasp = 0.3;
    double pulseHz = 0.0;  // pulsing of the song, 0 none
    double pulseDepth = 0.0;
};
// For a ring, `level` and `pace` may instead be given as whole curves of the ring's length.
Buffer cicadaSong(Rng& r, const Cicada& c, Edge edge, const Buffer* level, const Buffer* pace);

// A katydid's rasp: `pulses` scrapes of noise ringing near `carrier` Hz.
Buffer katydidRasp(Rng& r, double carrier, int pulses, double pulseRate);

// A gecko's chirping run of `count` clicks, slowing.
Buffer geckoChirps(Rng& r, int count, double hz);

// A frog's croak: `pulseRate` glottal pulses a second ringing the vocal sac and mouth at
// `carrier` Hz (with a second resonance at `second`), `seconds` long.
struct Croak {
    double seconds = 0.15;
    double pulseRate = 50.0;
    double carrier = 900.0;
    double second = 1800.0;
    double ringing = 0.02;  // decay of each pulse's ring, seconds
};
Buffer croak(Rng& r, const Croak& c);
// A green frog's "gunk", a loose banjo string plucked.
Buffer greenFrogGunk(Rng& r);

// ---- farm animals (recipes_farm.cpp) ------------------------------------------------------

// A cow's "mmm-OOO-ooo" near `pitch` Hz; `strain` 0..1 roughens and lifts it.
Buffer cowMoo(Rng& r, double pitch, double seconds, double strain);
// A cat's "m-ia-ow" near `pitch` Hz; `asking` lifts the end.
Buffer catMeow(Rng& r, double pitch, double seconds, bool asking);
// A rooster's "cock-a-doodle-doo", the last note `held` seconds.
Buffer roosterCrow(Rng& r, double pitch, double held);
// One bark; `size` 0 (a small dog, high) to 1 (a big one, deep).
Buffer dogBark(Rng& r, double size);
// A low rumbling growl.
Buffer dogGrowl(Rng& r, double seconds);
// A bleat near `pitch` Hz with its quaver: lambs, sheep and goats. `quaver` 0..1 is how
// strongly it shakes, `harsh` 0..1 how rough it is, `open` 0..1 from "meh" to "baa".
Buffer bleat(Rng& r, double pitch, double seconds, double quaver, double harsh, double open);
// A whinny: a high quavering neigh falling away into low nickers.
Buffer horseWhinny(Rng& r, double pitch, double seconds);
// A horse blowing through its nostrils, fluttering.
Buffer horseSnort(Rng& r);
// One hoof striking the ground; `hard` 0 (turf) to 1 (a road).
Buffer hoofStrike(Rng& r, double hard);
// A goose's nasal honk.
Buffer gooseHonk(Rng& r, double pitch);

}  // namespace brevane::soundgen::calls
