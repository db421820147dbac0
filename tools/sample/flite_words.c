/* flite_words TEXT prints when flite's voice "rms" speaks each word of the text as the guest: start in seconds, word. */
#include <flite/flite.h>
#include <stdio.h>

cst_voice *register_cmu_us_rms(const char *folder);

int main(int count, char **arguments) {
    if (count != 2)
        return 2;
    flite_init();
    cst_voice *voice = register_cmu_us_rms(NULL);
    feat_set_float(voice->features, "duration_stretch", 1.04f);
    cst_utterance *said = flite_synth_text(arguments[1], voice);
    for (cst_item *token = relation_head(utt_relation(said, "Token")); token; token = item_next(token)) {
        cst_item *word = item_daughter(token);
        if (word)
            printf("%.3f %s\n",
                   ffeature_float(word, "R:SylStructure.daughter1.daughter1.R:Segment.p.end"),
                   item_feat_string(token, "name"));
    }
    return 0;
}
