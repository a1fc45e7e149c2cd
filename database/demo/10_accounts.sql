-- Logins of the demonstration; the password of each is "kelvane". "noone" may connect but is no user of the system.

insert into accounts (name, hash) values
    ('MT',        '$y$j9T$x47zgQENLJUr3ewqJTfzN.$SYUd3F2n0YAS18i1ol7WEEbEqR5O.f.YTybk453Y.83'),
    ('amoreau',   '$y$j9T$MD4mAZDIo0FX.FlrfsAre.$3//MI.x6835DSlUDayHbrXkyOOmq1YwHQwdOhM/J0kD'),
    ('bkowalski', '$y$j9T$0yGfuTMDqK6gMUi/Wlgs/.$.lk8I.PTteyHUjmfkDtuS6EOX7V4ME3hUkOldum3DvA'),
    ('jdoe',      '$y$j9T$UWfBMf4XAS1sJYorIq/k2.$jPnH8G4eAvxnwJnZ2PCMZxXpeL7HH3farWss2p58DG0'),
    ('cnguyen',   '$y$j9T$kw2eOzusSEp1j6CrPESXp.$gtf5qrbZEhtgASdzENQdxZde35k8at7qisUwsjEvtM/'),
    ('dsantos',   '$y$j9T$Dy8p1/dGhfK8ZrM6gVf5f.$F9GJnb7FwrfmVL0iB74KCVCbdWuha.3a/ImkWN8r6Z2'),
    ('efischer',  '$y$j9T$iE5rWOKpCdAIMvhvSvnDu.$dSffVwwrk96tQI.yt8p0spi4DfaRocbBw9rxIqlxOHD'),
    ('fokafor',   '$y$j9T$ZyqPtZYQBUp4.STACw.II.$vl4bVOh7xuhvmJ4f8Ys3yukCZh11RoHup5ZjFdMo7D/'),
    ('gpetrov',   '$y$j9T$Mw7aRxEqqrERbJfqagCIz.$gEYOJSkGjI2ztG4wPUOOeLi6sdRDyLezxDzNdTu0VG2'),
    ('noone',     '$y$j9T$7H0pj9cW6vZAJHl6TFwSZ.$TAC/rL/Bn2aLF1HDfHa902qkSsT7Yc/y1LA8M59JWF5');
